// The script of the demo is played to its end, and leaves what it says.
#include "supporto/prova.h"

#include <QImage>
#include <QProcess>

using namespace Qt::StringLiterals;

class TestDemo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void dallIconaAlPdf();
    void lUsoErratoSiDice();
    void senzaSchermoLoSiSa();

private:
    /// Runs the demo on no display. @return its exit status
    int Esegui(const QStringList& Argomenti)
    {
        QProcess Processo;
        Processo.start(ProgrammaDiProva() + u"calcanova-demo"_s, Argomenti);
        if (!Processo.waitForFinished())
            return -1;
        Detto = QString::fromUtf8(Processo.readAllStandardOutput());
        Lamenti = QString::fromUtf8(Processo.readAllStandardError());
        return Processo.exitCode();
    }

    QString Detto;
    QString Lamenti;
};
PROVA(TestDemo);

void TestDemo::dallIconaAlPdf()
{
    const QString Cartella = NuovaCartella();
    const int Esito = Esegui({Cartella});
    QCOMPARE(Lamenti, QString());
    QCOMPARE(Esito, 0);
    const QStringList Righe = Detto.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(Righe.size(), 12);
    // 4,500 of the decree and 150 of the user's own, 98.50 and 27 of expenses, 500 received.
    QVERIFY2(Righe.at(5).startsWith(u"Acconti: netto dovuto 5.138,81 €"), qPrintable(Righe.at(5)));
    QVERIFY2(Righe.at(7).startsWith(u"Trova: parcelle nella cartella 1 "), qPrintable(Righe.at(7)));
    QVERIFY2(Righe.at(8).startsWith(u"Riaperta: netto dovuto 5.138,81 €"), qPrintable(Righe.at(8)));

    const QDir Fatti(Cartella);
    QCOMPARE(Fatti.entryList({u"[01]?-*.png"_s}).size(), 10);
    for (const QString& Immagine : Fatti.entryList({u"*.png"_s}))
        QVERIFY2(!QImage(Fatti.filePath(Immagine)).isNull(), qPrintable(Immagine));
    const auto Contenuto = [&Fatti](const QString& Nome) {
        QFile File(Fatti.filePath(Nome));
        return File.open(QIODevice::ReadOnly) ? File.readAll() : QByteArray();
    };
    QVERIFY(Contenuto(u"rossi contro edilnova.pdf"_s).startsWith("%PDF-"));
    QVERIFY(Contenuto(u"rossi contro edilnova.mdb"_s).startsWith("SQLite format 3"));
    const QString Testo = QString::fromUtf8(Contenuto(u"rossi contro edilnova.txt"_s));
    for (const QString& Voluto : {u"Preavviso di parcella n. 12 del 15/03/2024"_s, u"Fondo spese"_s,
                                  u"(cinquemilacentotrentotto/81)"_s})
        QVERIFY2(Testo.contains(Voluto), qPrintable(Voluto));
}

void TestDemo::lUsoErratoSiDice()
{
    QCOMPARE(Esegui({}), 2);
    QVERIFY(Lamenti.startsWith(u"calcanova-demo CARTELLA"));
}

void TestDemo::senzaSchermoLoSiSa()
{
    QCOMPARE(Esegui({u"--schermo"_s}), 1);
}

#include "TestDemo.moc"
