// Damaged files of the program, one after the other, under every command that reads them: one sentence, which
// names the file, and nothing that passes for an answer.
#include "chiamata.h"
#include "supporto/danni.h"
#include "supporto/registratore.h"

#include "platform/system/file.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// A program folder of its own, which is damaged.
class Guasto
{
public:
    Guasto() : Programma(NuovaCartella())
    {
        for (const QString& Nome : {u"parcelle.mdb"_s, u"parcelle55.mdb"_s, u"Comuni.mdb"_s,
                                    u"DatiStudio.mdb"_s, u"Tassi.dat"_s, u"Norme.mdb"_s})
            ScriviFile(Programma + Nome, LeggiFile(ProgrammaDiProva() + Nome));
        CreaCartella(Programma + u"doc"_s);
        for (const QString& Nome : {u"ContrattoPersonaFisica.rtf"_s, u"ResaInformazionePersonaFisica.rtf"_s})
            ScriviFile(Programma + u"doc/"_s + Nome, LeggiFile(SorgenteDiProva(u"programma/doc/"_s + Nome)));
        Nota = Programma + u"nota.mdb"_s;
    }

    Esito Chiama(const QStringList& Argomenti) const
    {
        return ::Chiama(QStringList{u"--programma"_s, Programma, u"--utente"_s, Programma} + Argomenti);
    }

    void Rovina(const QString& Nome, int Come) const { ::Rovina(Programma + Nome, Come); }

    QString Programma, Nota;
};

}  // namespace

class TestCliGuasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unaFraseColNome_data();
    void unaFraseColNome();
    void clausole_data();
    void clausole();
};
PROVA(TestCliGuasti);

void TestCliGuasti::unaFraseColNome_data()
{
    QTest::addColumn<QString>("File");
    QTest::addColumn<int>("Come");
    QTest::addColumn<QStringList>("Comando");

    const QString Esempio = SorgenteDiProva(u"dati/esempi/civile.json"_s);
    const std::array Righe{
        std::pair{u"parcelle.mdb"_s, QStringList{u"crea"_s, Esempio, NuovaCartella() + u"nuova.mdb"_s}},
        std::pair{u"parcelle55.mdb"_s, u"voci CIV 102 30000 --tariffa 55"_s.split(u' ')},
        std::pair{u"parcelle.mdb"_s, u"voci PEN 23 0"_s.split(u' ')},
        std::pair{u"Comuni.mdb"_s, u"codfis Rossi Maria 01/02/1980 F Milano"_s.split(u' ')},
        std::pair{
            u"Tassi.dat"_s,
            QStringList{
                u"interessi"_s, u"legali"_s, u"1000"_s, u"Euro"_s, {}, u"01/02/2009"_s, u"31/01/2012"_s}},
        std::pair{u"Tassi.dat"_s, u"istat 100 € 01/03/1998 01/11/2011"_s.split(u' ')},
        std::pair{u"Norme.mdb"_s, u"--norme vigenti termini 10/03/2026 10 giorni"_s.split(u' ')},
        std::pair{u"Norme.mdb"_s, u"--norme vigenti contributo 6000 ordinario 10/06/2025"_s.split(u' ')},
        std::pair{u"Norme.mdb"_s, u"ricorrenti"_s.split(u' ')},
        std::pair{u"DatiStudio.mdb"_s, QStringList{u"rubrica"_s, u"clienti"_s}},
    };
    for (const auto& [File, Comando] : Righe)
        for (int Come = 0; Come < Danni; ++Come)
            QTest::addRow("%s: %s %s", qPrintable(Comando.first()), qPrintable(File), NomiDanni[size_t(Come)])
                << File << Come << Comando;
}

void TestCliGuasti::unaFraseColNome()
{
    QFETCH(QString, File);
    QFETCH(int, Come);
    QFETCH(QStringList, Comando);
    // Another folder shows that the command has nothing else to refuse: one process keeps the municipalities
    // open.
    QCOMPARE(Guasto().Chiama(Comando).Stato, 0);
    if (Comando.first() == u"crea")
        QVERIFY(QFile::remove(Comando.last()));
    const Guasto Cartella;
    Cartella.Rovina(File, Come);
    const Esito Avuto = Cartella.Chiama(Comando);
    QCOMPARE(Avuto.Stato, 1);
    QCOMPARE(Avuto.Uscita, QString());
    QVERIFY2(Avuto.Guasti.contains(File), qPrintable(Avuto.Guasti));
    QCOMPARE(Avuto.Guasti.trimmed().count(u'\n'), 0);
    if (Comando.first() == u"crea")
        QVERIFY2(!QFileInfo::exists(Comando.last()), "half a note");
}

void TestCliGuasti::clausole_data()
{
    QTest::addColumn<QString>("File");
    QTest::addColumn<int>("Come");
    QTest::addColumn<QString>("Tipo");

    for (int Come = 0; Come < Danni; ++Come) {
        QTest::addRow("contract: %s", NomiDanni[size_t(Come)])
            << u"ContrattoPersonaFisica.rtf"_s << Come << u"5"_s;
        QTest::addRow("statement: %s", NomiDanni[size_t(Come)])
            << u"ResaInformazionePersonaFisica.rtf"_s << Come << u"6"_s;
    }
}

// The document is written all the same, and whoever prints it knows what is not in it. A file that was taken
// away is nobody's damage.
void TestCliGuasti::clausole()
{
    QFETCH(QString, File);
    QFETCH(int, Come);
    QFETCH(QString, Tipo);
    const Guasto Cartella;
    QCOMPARE(Cartella.Chiama({u"crea"_s, SorgenteDiProva(u"dati/esempi/civile.json"_s), Cartella.Nota}).Stato,
             0);
    const QStringList Stampa{u"stampa"_s, Cartella.Nota, Tipo, Cartella.Programma + u"uscita.txt"_s};
    const Esito Prima = Cartella.Chiama(Stampa);
    QCOMPARE(Prima.Guasti, QString());
    const QByteArray Intero = LeggiFile(Stampa.last());
    Cartella.Rovina(u"doc/"_s + File, Come);
    const Esito Avuto = Cartella.Chiama(Stampa);
    QCOMPARE(Avuto.Stato, Come == Mancante ? 0 : 1);
    QVERIFY(LeggiFile(Stampa.last()).size() < Intero.size());
    QCOMPARE(Avuto.Guasti.contains(File), Come != Mancante);
    QVERIFY(Avuto.Guasti.trimmed().count(u'\n') == 0);
}

#include "TestCliGuasti.moc"
