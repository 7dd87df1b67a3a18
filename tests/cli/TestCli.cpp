// calcanova-cli as a script calls it: arguments in, lines, errors and exit status out.
#include "chiamata.h"

#include "core/sessione.h"
#include "platform/system/file.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

QString Esempio(const QString& Nome)
{
    return SorgenteDiProva(u"dati/esempi/"_s) + Nome;
}

QString Scritta(const QByteArray& Json)
{
    const QString File = NuovaCartella() + u"descrizione.json"_s;
    ScriviFile(File, Json);
    return File;
}

const QString RiepilogoCivile =
    u"Onorari=4.500,00|Spese imponibili=0|Spese generali 12,5%=562,50|=5.062,50|"
    u"Cassa previdenza avvocati 4%=202,50|=5.265,00|I.V.A. 21%=1.105,65|"
    u"Spese esenti art. 15 d.p.r. 633/72=0|TOTALE EURO=6.370,65|Ritenuta Acconto 20%=-1.012,50|"
    u"Importo dovuto al netto della R.A.=5.358,15|cinquemilatrecentocinquantotto/15\n"_s;

}  // namespace

class TestCli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void risponde_data();
    void risponde();
    void lettereOltreLeDodiciCifre_data();
    void lettereOltreLeDodiciCifre();
    void rispostaSuUnDiscoPieno();
    void rifiuta_data();
    void rifiuta();
    void tuttiInsiemeVannoAvanti();
    void casiConPuntoEVirgola();
    void ilPercentoNelNome();
    void recordPerUnoScript();
    void esempioCivile();
    void esempioPenale();
    void esempioStragiudiziale();
    void lettaComeScritta();
    void descrizioneRifiutata_data();
    void descrizioneRifiutata();
    void nonSostituisceAltro_data();
    void nonSostituisceAltro();
    void cartellaDiSolaLettura();
    void parcellaIllegibile_data();
    void parcellaIllegibile();
    void senzaTariffe();
    void stampaSoloInFileConosciuti();
    void stampaOgniDocumento_data();
    void stampaOgniDocumento();
    void esponeGliAcconti_data();
    void esponeGliAcconti();
};
PROVA(TestCli);

void TestCli::init()
{
    AzzeraSessione();
}

void TestCli::risponde_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<QString>("Risposta");

    QTest::newRow("lettere") << QStringList{u"lettere"_s, u"1234,5"_s} << u"milleduecentotrentaquattro/50"_s;
    QTest::newRow("lettere, il massimo") << QStringList{u"lettere"_s, u"999999999999"_s}
                                         << u"novecentonovantanovemiliardinovecentonovantanovemilioninovecent"
                                            u"onovantanovemilanovecentonovantanove"
                                            "/00"_s;
    QTest::newRow("lettere con le migliaia")
        << QStringList{u"lettere"_s, u"1.190,70"_s} << u"millecentonovanta/70"_s;
    QTest::newRow("espressione") << QStringList{u"espressione"_s, u"200+(x-5000)*0.02"_s, u"20000"_s}
                                 << u"500"_s;
    QTest::newRow("virgola nel risultato") << QStringList{u"espressione"_s, u"1/4"_s} << u"0,25"_s;
    QTest::newRow("meno iniziale") << QStringList{u"espressione"_s, u"-x+1"_s, u"5"_s} << u"-6"_s;
    QTest::newRow("formato") << QStringList{u"formato"_s, u"#,##0.00"_s, u"30000"_s} << u"30.000,00"_s;
    QTest::newRow("formato a tre sezioni")
        << QStringList{u"formato"_s, u"#,##0.00;-#,##0.00;0"_s, u"-0,001"_s} << u"0"_s;
    QTest::newRow("formato di data") << QStringList{u"formato"_s, u"mm/dd/yyyy"_s, u"4-2-2013"_s}
                                     << u"02/04/2013"_s;
    QTest::newRow("valore che comincia con due trattini")
        << QStringList{u"--"_s, u"formato"_s, u"0.00"_s, u"-3"_s} << u"-3,00"_s;
    // 12,5 % of 1.000: 125; base 1.125; 4 % 45; 21 % of 1.170 = 245,70; total 1.415,70; 20 % 225;
    // net 1.190,70.
    QTest::newRow("tasse intere")
        << QStringList{u"tasse"_s, u"1000"_s, u"0"_s, u"0"_s,  u"0"_s, u"0"_s,
                       u"0"_s,     u"12,5"_s, u"4"_s, u"21"_s, u"20"_s}
        << u"Onorari=1.000,00|Spese imponibili=0|Spese generali 12,5%=125,00|=1.125,00|"
           u"Cassa previdenza avvocati 4%=45,00|=1.170,00|I.V.A. 21%=245,70|"
           u"Spese esenti art. 15 d.p.r. 633/72=0|TOTALE EURO=1.415,70|Ritenuta Acconto 20%=-225,00|"
           u"Importo dovuto al netto della R.A.=1.190,70|millecentonovanta/70"_s;
    QTest::newRow("regime agevolato: né IVA né ritenuta")
        << QStringList{u"tasse"_s, u"1000"_s, u""_s,   u""_s,   u""_s,  u""_s, u""_s,
                       u""_s,      u"4"_s,    u"21"_s, u"20"_s, u"3"_s, u"1"_s}
        << u"Onorari=1.000,00|Spese imponibili=0|=1.000,00|Cassa previdenza avvocati 4%=40,00|=1.040,00|"
           u"Spese esenti art. 15 d.p.r. 633/72=0|TOTALE EURO=1.040,00|millequaranta/00"_s;
    QTest::newRow("acconti maggiori degli onorari")
        << QStringList{u"tasse"_s, u"100"_s, u"0"_s, u"0"_s, u"300"_s, u"0"_s,
                       u"0"_s,     u""_s,    u"4"_s, u""_s,  u""_s}
        << u"Onorari=100,00|Acconti corrispettivi=-300,00|Spese imponibili=0|=-200,00|"
           u"Cassa previdenza avvocati 4%=-8,00|=-208,00|Spese esenti art. 15 d.p.r. 633/72=0|"
           u"TOTALE EURO=-208,00|menoduecentotto/00"_s;
    // The court costs note knows no payments: 300 paid change nothing.
    QTest::newRow("nota giudiziale senza tasse né acconti")
        << QStringList{u"tasse"_s, u"100"_s, u"0"_s, u"0"_s, u"300"_s, u"0"_s,
                       u"0"_s,     u""_s,    u""_s,  u""_s,  u""_s,    u"4"_s}
        << u"Onorari=100,00|Spese imponibili=0|=100,00|Spese esenti art. 15 d.p.r. 633/72=0|"
           u"TOTALE EURO=100,00|Oltre a iva, c.p. avv., come per legge=|cento/00"_s;
}

void TestCli::risponde()
{
    QFETCH(QStringList, Argomenti);
    QFETCH(QString, Risposta);
    const Esito Avuto = Chiama(Argomenti);
    QCOMPARE(Avuto.Guasti, QString());
    QCOMPARE(Avuto.Uscita, Risposta + u'\n');
    QCOMPARE(Avuto.Stato, 0);
}

void TestCli::lettereOltreLeDodiciCifre_data()
{
    QTest::addColumn<QString>("Importo");
    QTest::addColumn<QString>("Risposta");

    QTest::newRow("thirteen digits")
        << u"1234567890123"_s
        << u"centoventitremiliardiquattrocentocinquantaseimilionisettecentottantan"
           u"ovemiladodici/00"_s;
    QTest::newRow("the cents stay") << u"1000000000000,25"_s << u"centomiliardi/25"_s;
    QTest::newRow("below 0") << u"-1000000000000"_s << u"menocentomiliardi/00"_s;
    QTest::newRow("eighteen digits") << u"1e17"_s << u"centomiliardi/00"_s;
}

/// As a document has it; a script is told besides.
void TestCli::lettereOltreLeDodiciCifre()
{
    QFETCH(QString, Importo);
    QFETCH(QString, Risposta);
    const Esito Avuto = Chiama({u"--"_s, u"lettere"_s, Importo});
    QCOMPARE(Avuto.Uscita, Risposta + u'\n');
    QCOMPARE(Avuto.Guasti, u"Avvertenza: in lettere vanno solo le prime 12 cifre dell'importo.\n"_s);
    QCOMPARE(Avuto.Stato, 0);
}

/// The program itself: part of an answer must not pass for the whole.
void TestCli::rispostaSuUnDiscoPieno()
{
    for (const QStringList& Chiesto : {QStringList{u"lettere"_s, u"12"_s}, QStringList{u"--help"_s}}) {
        QProcess Programma;
        Programma.setStandardOutputFile(u"/dev/full"_s);
        Programma.start(ProgrammaDiProva() + u"calcanova-cli"_s, Chiesto);
        QVERIFY(Programma.waitForFinished());
        QCOMPARE(Programma.exitCode(), 1);
        QCOMPARE(QString::fromUtf8(Programma.readAllStandardError()),
                 u"Errore: la risposta non è stata scritta per intero (61)\n"_s);
    }
}

void TestCli::rifiuta_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Contiene");

    QTest::newRow("due punti") << QStringList{u"lettere"_s, u"1.2.3"_s} << 1 << u"(13)"_s;
    QTest::newRow("punto decimale") << QStringList{u"lettere"_s, u"12.5"_s} << 1 << u"(13)"_s;
    QTest::newRow("oltre ogni numero") << QStringList{u"lettere"_s, u"1e400"_s} << 1 << u"(6)"_s;
    QTest::newRow("lettere in un importo")
        << QStringList{u"formato"_s, u"0.00"_s, u"abc"_s} << 1 << u"valore"_s;
    QTest::newRow("data inesistente")
        << QStringList{u"formato"_s, u"dd/mm/yyyy"_s, u"31/02/2012"_s} << 1 << u"(13)"_s;
    QTest::newRow("tipo fuori elenco") << QStringList{u"tasse"_s, u"1"_s, u""_s, u""_s, u""_s, u""_s,
                                                      u""_s,      u""_s,  u""_s, u""_s, u""_s, u"8"_s}
                                       << 1 << u"da 0 a 7"_s;
    QTest::newRow("percentuale che non lo è")
        << QStringList{u"tasse"_s, u"1"_s,      u""_s, u""_s, u""_s, u""_s,
                       u""_s,      u"dodici"_s, u""_s, u""_s, u""_s}
        << 1 << u"spese generali %"_s;
    QTest::newRow("nessun comando") << QStringList{} << 2 << u"Uso: calcanova-cli"_s;
    QTest::newRow("comando sconosciuto") << QStringList{u"ricava"_s} << 2 << u"ricava"_s;
    QTest::newRow("comando in maiuscolo") << QStringList{u"LETTERE"_s, u"1"_s} << 2 << u"LETTERE"_s;
    QTest::newRow("valore mancante") << QStringList{u"formato"_s, u"0.00"_s} << 2 << u"MODELLO VALORE"_s;
    QTest::newRow("opzione sconosciuta")
        << QStringList{u"--veloce"_s, u"lettere"_s, u"1"_s} << 2 << u"--veloce"_s;
    QTest::newRow("opzione senza cartella")
        << QStringList{u"lettere"_s, u"1"_s, u"--utente"_s} << 2 << u"--utente"_s;
    QTest::newRow("opzione col valore vuoto") << QStringList{u"lettere"_s, u"1"_s, u"--csv"_s, u""_s} << 2
                                              << u"L'opzione --csv vuole una destinazione."_s;
}

void TestCli::rifiuta()
{
    QFETCH(QStringList, Argomenti);
    QFETCH(int, Stato);
    QFETCH(QString, Contiene);
    const Esito Avuto = Chiama(Argomenti);
    QCOMPARE(Avuto.Stato, Stato);
    QCOMPARE(Avuto.Uscita, QString());
    QVERIFY2(Avuto.Guasti.contains(Contiene), qPrintable(Avuto.Guasti));
}

void TestCli::tuttiInsiemeVannoAvanti()
{
    const Esito Avuto =
        Chiama({u"lettere"_s, u"--batch"_s}, {"1\n", "1.2.3\n", "", "2000001\n", "1;2\n", "0"});
    const QStringList Righe = Avuto.Uscita.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(Righe.size(), 6);
    QCOMPARE(Righe[0], u"uno/00"_s);
    QVERIFY(Righe[1].startsWith(u"errore: "));
    QVERIFY(Righe[1].contains(u"(13)"));
    QVERIFY(Righe[2].startsWith(u"errore: "));  // an empty case has its line too
    QCOMPARE(Righe[3], u"duemilionuno/00"_s);
    QVERIFY(Righe[4].startsWith(u"errore: "));
    QCOMPARE(Righe[5], u"/00"_s);
    QCOMPARE(Avuto.Stato, 0);
}

void TestCli::casiConPuntoEVirgola()
{
    QCOMPARE(Chiama({u"formato"_s, u"--batch"_s}, {"#,##0.00;-#,##0.00;0;-1234,5"}).Uscita, u"-1.234,50\n"_s);
    QCOMPARE(Chiama({u"espressione"_s, u"--batch"_s}, {"2x;3", "1/0;3"}).Uscita,
             u"6\nerrore 7: Division by zero.\n"_s);
    QCOMPARE(Chiama({u"tasse"_s, u"--batch"_s}, {"100;0;0;0;0;0;;;;"}).Uscita,
             u"Onorari=100,00|Spese imponibili=0|=100,00|Spese esenti art. 15 d.p.r. 633/72=0|"
             u"TOTALE EURO=100,00|cento/00\n"_s);
    QCOMPARE(Chiama({u"lettere"_s, u"1"_s, u"--batch"_s}).Stato, 2);
}

/// "%2C" is what a comma becomes in names from the web: the number of an error has no place in it.
void TestCli::ilPercentoNelNome()
{
    const QString Nota = NuovaCartella() + u"a%2Cb.mdb"_s;
    ScriviFile(Nota, "x");
    const Esito Avuto = Chiama({u"nota"_s, u"--batch"_s}, {Nota.toUtf8()});
    QVERIFY2(Avuto.Uscita.contains(Nota + u" (3343)"_s), qPrintable(Avuto.Uscita));
    const Esito Solo = Chiama({u"nota"_s, Nota});
    QVERIFY2(Solo.Guasti.contains(Nota + u" (3343)"_s), qPrintable(Solo.Guasti));
}

void TestCli::recordPerUnoScript()
{
    const Esito Avuto = Chiama(
        {u"--json"_s, u"tasse"_s, u"1000"_s, u""_s, u""_s, u""_s, u""_s, u""_s, u""_s, u"4"_s, u""_s, u""_s});
    const QJsonObject Record = QJsonDocument::fromJson(Avuto.Uscita.toUtf8()).object();
    QCOMPARE(Record[u"totale"_s].toDouble(), 1040.0);
    QCOMPARE(Record[u"lettere"_s].toString(), u"millequaranta/00"_s);
    QCOMPARE(Record[u"righe"_s].toArray().first().toObject()[u"etichetta"_s].toString(), u"Onorari"_s);
    QCOMPARE(Chiama({u"--json"_s, u"lettere"_s, u"1"_s}).Uscita, u"{\"risultato\":\"uno/00\"}\n"_s);
}

void TestCli::esempioCivile()
{
    const QString Nota = NuovaCartella() + u"civile.mdb"_s;
    const Esito Fatta = Chiama({u"crea"_s, Esempio(u"civile.json"_s), Nota});
    QCOMPARE(Fatta.Guasti, QString());
    QCOMPARE(Fatta.Uscita, Nota + u'\n');
    QCOMPARE(Chiama({u"riepilogo"_s, Nota, u"0"_s}).Uscita, RiepilogoCivile);

    const QString Testo = NuovaCartella() + u"civile.txt"_s;
    QCOMPARE(Chiama({u"stampa"_s, Nota, u"0"_s, Testo}).Stato, 0);
    const QString Composto = QString::fromUtf8(LeggiFile(Testo));
    QVERIFY(Composto.contains(u"(cinquemilatrecentocinquantotto/15)"));
    QVERIFY(Composto.contains(u"Valore: 30.000,00 €"));
}

void TestCli::esempioPenale()
{
    // Tribunale monocratico 300 + 600 + 900 + 900, hours 2,5 -> 3 at 20 = 60; all halved (art. 9): 150 + 300
    // + 450 + 450 + 30; the free item 150 takes no variation: 1.530. Expenses 42,50 taxable, 7,08 exempt.
    // Base 1.572,50; 4 % 62,90; 21 % of 1.635,40 = 343,434 -> 343,43; total 1.572,50 + 62,90 + 343,43 + 7,08
    // = 1.985,91.
    const QString Nota = NuovaCartella() + u"penale.mdb"_s;
    QCOMPARE(Chiama({u"crea"_s, Esempio(u"penale.json"_s), Nota}).Guasti, QString());
    QCOMPARE(
        Chiama({u"riepilogo"_s, Nota}).Uscita,
        u"Onorari=1.530,00|Spese imponibili=42,50|=1.572,50|Cassa previdenza avvocati 4%=62,90|=1.635,40|"
        u"I.V.A. 21%=343,43|Spese esenti art. 15 d.p.r. 633/72=7,08|TOTALE EURO=1.985,91|"
        u"millenovecentottantacinque/91\n"_s);
}

void TestCli::esempioStragiudiziale()
{
    // Value 20.000, second bracket. Opinion: 275 to 880, mid-point 577,50, + 20 % = 693. Negotiation: 200
    // + 15.000 x 2 % = 500 to 550 + 15.000 x 6 % = 1.450, mid-point 975, + 20 % = 1.170. Three hours: 100 to
    // 300, mid-point 200, 600 + 20 % = 720. Sum 2.583; 12,5 % 322,875 -> 322,88. Paid 500 + 387.254 lire =
    // 200,00 (387.254 / 1936,27), taxable expenses 18,40 less 10. Base 2.583 - 700 + 18,40 - 10 + 322,88
    // = 2.214,28; 4 % 88,5712 -> 88,57; 21 % of 2.302,85 = 483,5985 -> 483,60; exempt 32; total 2.818,45; 20
    // % 442,856 -> 442,86; net 2.375,59.
    const QString Nota = NuovaCartella() + u"stragiudiziale.mdb"_s;
    QCOMPARE(Chiama({u"crea"_s, Esempio(u"stragiudiziale.json"_s), Nota}).Guasti, QString());
    QCOMPARE(Chiama({u"riepilogo"_s, Nota, u"7"_s}).Uscita,
             u"Onorari=2.583,00|Acconti corrispettivi=-700,00|Spese imponibili=18,40|"
             u"Acconti spese imponibili=-10,00|Spese generali 12,5%=322,88|=2.214,28|"
             u"Cassa previdenza avvocati 4%=88,57|=2.302,85|I.V.A. 21%=483,60|"
             u"Spese esenti art. 15 d.p.r. 633/72=32,00|TOTALE EURO=2.818,45|Ritenuta Acconto 20%=-442,86|"
             u"Importo dovuto al netto della R.A.=2.375,59|duemilatrecentosettantacinque/59\n"_s);
}

void TestCli::lettaComeScritta()
{
    const QString Nota = NuovaCartella() + u"letta.mdb"_s;
    QCOMPARE(Chiama({u"crea"_s, Esempio(u"stragiudiziale.json"_s), Nota}).Stato, 0);
    const QJsonObject Letta = QJsonDocument::fromJson(Chiama({u"nota"_s, Nota}).Uscita.toUtf8()).object();
    QCOMPARE(Letta[u"categoria"_s].toString(), u"STR"_s);
    QCOMPARE(Letta[u"valore"_s].toDouble(), 20000.0);
    QCOMPARE(Letta[u"cliente"_s].toString(), u"Verdi Arredamenti S.n.c."_s);
    const QJsonObject Trattativa = Letta[u"onorari"_s].toArray()[1].toObject();
    QCOMPARE(Trattativa[u"data"_s].toString(), u"04/02/2013"_s);
    QCOMPARE(Trattativa[u"importo"_s].toDouble(), 1170.0);
    QCOMPARE(Trattativa[u"baseMassimo"_s].toDouble(), 1450.0);
    const QJsonObject Lire = Letta[u"acconti"_s].toArray()[1].toObject();
    QCOMPARE(Lire[u"valuta"_s].toString(), u"L"_s);
    QCOMPARE(Lire[u"corrispettivi"_s].toDouble(), 387254.0);
}

void TestCli::descrizioneRifiutata_data()
{
    QTest::addColumn<QByteArray>("Json");
    QTest::addColumn<QString>("Contiene");

    QTest::newRow("non è JSON") << QByteArray("{categoria") << u"(321)"_s;
    QTest::newRow("vuota") << QByteArray() << u"(321)"_s;
    QTest::newRow("numero impossibile") << QByteArray(R"({"categoria":"CIV","valore":1e400})") << u"("_s;
    QTest::newRow("voce sconosciuta")
        << QByteArray(R"({"categoria":"CIV","autorita":2,"valore":1000,"onorari":[{"voce":77}]})")
        << u"onorari[0].voce"_s;
    QTest::newRow("valore fuori dallo scaglione")
        << QByteArray(R"({"categoria":"CIV","autorita":2,"scaglione":2,"valore":1000})") << u"Campo valore"_s;
    QTest::newRow("tipo sbagliato") << QByteArray(R"({"categoria":"CIV","autorita":[2]})") << u"autorita"_s;
    QTest::newRow("due punti in un importo")
        << QByteArray(R"({"categoria":"CIV","autorita":2,"valore":"1.2.3"})") << u"Campo valore"_s;
    QTest::newRow("punto decimale in un importo")
        << QByteArray(R"({"categoria":"CIV","autorita":2,"valore":"12.5"})") << u"Campo valore"_s;
    QTest::newRow("campo non previsto")
        << QByteArray(R"({"categoria":"CIV","autorita":2,"valore":1000,"clente":"Rossi"})") << u"clente"_s;
}

void TestCli::descrizioneRifiutata()
{
    QFETCH(QByteArray, Json);
    QFETCH(QString, Contiene);
    const QString Nota = NuovaCartella() + u"nota.mdb"_s;
    const Esito Avuto = Chiama({u"crea"_s, Scritta(Json), Nota});
    QCOMPARE(Avuto.Stato, 1);
    QVERIFY2(Avuto.Guasti.contains(Contiene), qPrintable(Avuto.Guasti));
    QVERIFY(Avuto.Guasti.startsWith(u"Errore: "));
    QVERIFY(QDir(CartellaFile(Nota)).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void TestCli::nonSostituisceAltro_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::newRow("un testo") << u"nota.mdb"_s << QByteArray("appunti dello studio\n");
    QTest::newRow("un file vuoto") << u"vuoto.mdb"_s << QByteArray();
}

void TestCli::nonSostituisceAltro()
{
    QFETCH(QString, Nome);
    QFETCH(QByteArray, Contenuto);
    const QString File = NuovaCartella() + Nome;
    ScriviFile(File, Contenuto);
    const Esito Avuto = Chiama({u"crea"_s, Esempio(u"civile.json"_s), File});
    QCOMPARE(Avuto.Stato, 1);
    QVERIFY(Avuto.Guasti.contains(u"(58)"));
    QCOMPARE(LeggiFile(File), Contenuto);
}

void TestCli::cartellaDiSolaLettura()
{
    const QString Cartella = NuovaCartella();
    ImpostaSolaLettura(Cartella, true);
    const Esito Avuto = Chiama({u"crea"_s, Esempio(u"civile.json"_s), Cartella + u"nota.mdb"_s});
    ImpostaSolaLettura(Cartella, false);
    QCOMPARE(Avuto.Stato, 1);
    QVERIFY2(Avuto.Guasti.contains(u"(75)"), qPrintable(Avuto.Guasti));
    QVERIFY(QDir(Cartella).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void TestCli::parcellaIllegibile_data()
{
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::newRow("vuota") << QByteArray();
    QTest::newRow("un testo") << QByteArray("questa non è una parcella");
    QTest::newRow("intestazione e nient'altro") << QByteArray("SQLite format 3\0", 16);
}

void TestCli::parcellaIllegibile()
{
    QFETCH(QByteArray, Contenuto);
    const QString File = NuovaCartella() + u"guasta.mdb"_s;
    ScriviFile(File, Contenuto);
    for (const QStringList& Comando :
         {QStringList{u"nota"_s, File}, QStringList{u"riepilogo"_s, File, u"0"_s},
          QStringList{u"stampa"_s, File, u"0"_s, NuovaCartella() + u"x.txt"_s}}) {
        const Esito Avuto = Chiama(Comando);
        QCOMPARE(Avuto.Stato, 1);
        QVERIFY2(Avuto.Guasti.contains(u"(3343)"), qPrintable(Avuto.Guasti));
        QCOMPARE(Avuto.Uscita, QString());
    }
    QCOMPARE(LeggiFile(File), Contenuto);
    QVERIFY(Chiama({u"nota"_s, NuovaCartella() + u"assente.mdb"_s}).Guasti.contains(u"(3024)"));
}

void TestCli::senzaTariffe()
{
    const QString Vuota = NuovaCartella();
    const Esito Avuto =
        Chiama({u"--programma"_s, Vuota, u"crea"_s, Esempio(u"civile.json"_s), Vuota + u"n.mdb"_s});
    QCOMPARE(Avuto.Stato, 1);
    QVERIFY2(Avuto.Guasti.contains(u"(3024)"), qPrintable(Avuto.Guasti));
    QVERIFY(!EsisteFile(Vuota + u"n.mdb"_s));
}

void TestCli::stampaSoloInFileConosciuti()
{
    const QString Nota = NuovaCartella() + u"nota.mdb"_s;
    QCOMPARE(Chiama({u"crea"_s, Esempio(u"civile.json"_s), Nota}).Stato, 0);
    const QString Altro = NuovaCartella() + u"nota.xyz"_s;
    QCOMPARE(Chiama({u"stampa"_s, Nota, u"0"_s, Altro}).Stato, 1);
    QVERIFY(!EsisteFile(Altro));
}

void TestCli::stampaOgniDocumento_data()
{
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<QString>("Parole");
    QTest::newRow("prenotula") << u"0"_s << u"Preavviso di parcella"_s;
    QTest::newRow("preventivo") << u"1"_s << u"Preventivo di massima, redatto"_s;
    QTest::newRow("fattura sintetica") << u"2"_s << u"Descrizione prestazioni e rimborsi"_s;
    QTest::newRow("fattura analitica") << u"3"_s << u"Fattura N°"_s;
    QTest::newRow("nota spese giudiziale") << u"4"_s << u"NOTA SPESE GIUDIZIALE"_s;
    QTest::newRow("contratto") << u"5"_s << u"Contratto di affidamento di incarico"_s;
    QTest::newRow("informativa") << u"6"_s << u"DICHIARAZIONI DI RESA INFORMAZIONE"_s;
    QTest::newRow("parte contabile") << u"7"_s << u"RIEPILOGO:"_s;
}

void TestCli::stampaOgniDocumento()
{
    QFETCH(QString, Tipo);
    QFETCH(QString, Parole);
    const QString Nota = NuovaCartella() + u"nota.mdb"_s;
    QCOMPARE(Chiama({u"crea"_s, Esempio(u"civile.json"_s), Nota}).Stato, 0);
    const QString Testo = NuovaCartella() + u"documento.txt"_s;
    const Esito Fatta = Chiama({u"stampa"_s, Nota, Tipo, Testo});
    QCOMPARE(Fatta.Guasti, QString());
    QCOMPARE(Fatta.Stato, 0);
    QVERIFY(QString::fromUtf8(LeggiFile(Testo)).contains(Parole));
}

void TestCli::esponeGliAcconti_data()
{
    QTest::addColumn<QString>("Stampa");
    QTest::addColumn<QString>("Tipo");
    QTest::addColumn<bool>("Esposti");
    QTest::newRow("prenotula che li espone") << u"{\"tipo\": 0, \"esponiAcconti\": true}"_s << u"0"_s << true;
    QTest::newRow("chiesti con un altro documento")
        << u"{\"tipo\": 0, \"esponiAcconti\": true}"_s << u"3"_s << true;
    QTest::newRow("prenotula che non dice") << u"{\"tipo\": 0}"_s << u"0"_s << false;
    QTest::newRow("sintetica che non dice") << u"{\"tipo\": 2}"_s << u"2"_s << true;
    QTest::newRow("sintetica che non li espone")
        << u"{\"tipo\": 2, \"esponiAcconti\": false}"_s << u"2"_s << false;
}

void TestCli::esponeGliAcconti()
{
    QFETCH(QString, Stampa);
    QFETCH(QString, Tipo);
    QFETCH(bool, Esposti);
    const QString Nota = NuovaCartella() + u"nota.mdb"_s;
    const QString Descrizione = Scritta(
        u"{\"categoria\": \"CIV\", \"autorita\": 2, \"valore\": 30000, \"acconti\": [{\"descrizione\": "
        u"\"Fondo spese versato\", \"corrispettivi\": 100}], \"stampa\": %1}"_s.arg(Stampa)
            .toUtf8());
    const Esito Creata = Chiama({u"crea"_s, Descrizione, Nota});
    QCOMPARE(Creata.Guasti, QString());
    const QString Testo = NuovaCartella() + u"documento.txt"_s;
    QCOMPARE(Chiama({u"stampa"_s, Nota, Tipo, Testo}).Stato, 0);
    const QString Composto = QString::fromUtf8(LeggiFile(Testo));
    // The short invoice sums them up in a row, the others list them one by one.
    QCOMPARE(Composto.contains(Tipo == u"2" ? u"cconti"_s : u"Fondo spese versato"_s), Esposti);
}

#include "TestCli.moc"
