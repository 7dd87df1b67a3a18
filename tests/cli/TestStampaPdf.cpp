// calcanova-cli stampa to a PDF and to the exports: in the test's process, and as a script without a display
// calls it.
#include "supporto/pagine.h"
#include "supporto/prova.h"

#include "chiamata.h"
#include "platform/system/file.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

QString NotaDiEsempio(const QString& Nome)
{
    const QString Nota = NuovaCartella() + u"parcella rossi.mdb"_s;
    const Esito Fatta = Chiama({u"crea"_s, SorgenteDiProva(u"dati/esempi/"_s) + Nome, Nota});
    return Fatta.Stato == 0 ? Nota : QString();
}

QString Tutto(const QByteArray& Pdf)
{
    return pagine::Leggi(u"pdftotext"_s, {u"-raw"_s, u"%"_s, u"-"_s}, Pdf).simplified();
}

}  // namespace

class TestStampaPdf : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ilPdfHaLeParoleDelTesto_data();
    void ilPdfHaLeParoleDelTesto();
    void titoloEFont();
    void cartellaCheManca();
    void senzaSchermoNeSessione();
    void esportazioni_data();
    void esportazioni();
    void estensioneSconosciuta();
};
PROVA(TestStampaPdf);

void TestStampaPdf::ilPdfHaLeParoleDelTesto_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Tipo");
    for (const char16_t* Nome : {u"civile.json", u"penale.json", u"stragiudiziale.json"})
        for (const char16_t* Tipo : {u"0", u"7"})
            QTest::newRow(qPrintable(QString::fromUtf16(Nome) + u' ' + QString::fromUtf16(Tipo)))
                << QString::fromUtf16(Nome) << QString::fromUtf16(Tipo);
}

void TestStampaPdf::ilPdfHaLeParoleDelTesto()
{
    QFETCH(QString, Nome);
    QFETCH(QString, Tipo);
    const QString Nota = NotaDiEsempio(Nome);
    const QString Pdf = NuovaCartella() + u"nota.PDF"_s;
    const QString Testo = NuovaCartella() + u"nota.txt"_s;
    QCOMPARE(Chiama({u"stampa"_s, Nota, Tipo, Pdf}).Stato, 0);
    QCOMPARE(Chiama({u"stampa"_s, Nota, Tipo, Testo}).Stato, 0);
    // Both run down the page, but cells of several lines side by side: the words are the same, not their
    // order.
    QStringList Lette = Tutto(LeggiFile(Pdf)).split(u' ');
    QStringList Attese = QString::fromUtf8(LeggiFile(Testo)).simplified().split(u' ');
    // The rule above a sum is text there and a line here.
    Attese.removeIf([](const QString& Parola) { return Parola.count(u'_') == Parola.size(); });
    Attese += {u"Pagina"_s, u"1"_s};
    QVERIFY(Attese.size() > 30);
    Lette.sort();
    Attese.sort();
    QCOMPARE(Lette, Attese);
}

void TestStampaPdf::titoloEFont()
{
    const QString Pdf = NuovaCartella() + u"nota.pdf"_s;
    const Esito Fatta = Chiama({u"--json"_s, u"stampa"_s, NotaDiEsempio(u"civile.json"_s), u"0"_s, Pdf});
    QVERIFY2(Fatta.Uscita.contains(u"\"documento\":\"Prenotula\""_s), qPrintable(Fatta.Uscita));
    const QByteArray Byte = LeggiFile(Pdf);
    QVERIFY(pagine::Leggi(u"pdfinfo"_s, {u"%"_s}, Byte).contains(u"Prenotula - parcella rossi\n"_s));
    QCOMPARE(pagine::FontMancanti(Byte), QStringList());
}

void TestStampaPdf::cartellaCheManca()
{
    const Esito Fatta =
        Chiama({u"stampa"_s, NotaDiEsempio(u"civile.json"_s), u"0"_s, NuovaCartella() + u"x/nota.pdf"_s});
    QCOMPARE(Fatta.Stato, 1);
    QVERIFY2(Fatta.Guasti.contains(u"(76)"_s), qPrintable(Fatta.Guasti));
}

void TestStampaPdf::senzaSchermoNeSessione()
{
    const QString Nota = NotaDiEsempio(u"civile.json"_s);
    const QString Pdf = NuovaCartella() + u"nota.pdf"_s;
    QProcess Processo;
    QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
    for (const char16_t* Nome : {u"QT_QPA_PLATFORM", u"DISPLAY", u"WAYLAND_DISPLAY", u"XDG_RUNTIME_DIR"})
        Ambiente.remove(QString::fromUtf16(Nome));
    Processo.setProcessEnvironment(Ambiente);
    Processo.start(ProgrammaDiProva() + u"calcanova-cli"_s, {u"stampa"_s, Nota, u"0"_s, Pdf});
    QVERIFY(Processo.waitForFinished());
    QCOMPARE(Processo.exitCode(), 0);
    QCOMPARE(Processo.readAllStandardError(), QByteArray());
    QVERIFY(Tutto(LeggiFile(Pdf)).contains(u"TOTALE EURO"_s));
}

void TestStampaPdf::esportazioni_data()
{
    QTest::addColumn<QString>("Estensione");
    QTest::addColumn<QByteArray>("Inizio");
    QTest::addColumn<QByteArray>("Titolo");
    QTest::newRow("word processor") << u".doc"_s << "{\\rtf1\\ansi"_ba
                                    << "{\\title Prenotula - parcella rossi}"_ba;
    QTest::newRow("page") << u".htm"_s << "<!DOCTYPE html>"_ba
                          << "<title>Prenotula - parcella rossi</title>"_ba;
    QTest::newRow("capitals") << u".HTM"_s << "<!DOCTYPE html>"_ba
                              << "<title>Prenotula"_ba;
}

void TestStampaPdf::esportazioni()
{
    QFETCH(QString, Estensione);
    QFETCH(QByteArray, Inizio);
    QFETCH(QByteArray, Titolo);
    const QString File = NuovaCartella() + u"nota"_s + Estensione;
    QCOMPARE(Chiama({u"stampa"_s, NotaDiEsempio(u"civile.json"_s), u"0"_s, File}).Stato, 0);
    const QByteArray Byte = LeggiFile(File);
    QVERIFY(Byte.startsWith(Inizio));
    QVERIFY(Byte.contains(Titolo));
    QVERIFY(Byte.contains("TOTALE EURO"));
}

void TestStampaPdf::estensioneSconosciuta()
{
    const Esito Fatta =
        Chiama({u"stampa"_s, NotaDiEsempio(u"civile.json"_s), u"0"_s, NuovaCartella() + u"nota.docx"_s});
    QCOMPARE(Fatta.Stato, 1);
    QVERIFY2(Fatta.Guasti.contains(u".txt, .pdf, .doc o .htm"_s), qPrintable(Fatta.Guasti));
}

#include "TestStampaPdf.moc"
