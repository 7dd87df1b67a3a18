// The calculators from the command line.
#include "chiamata.h"

#include "core/sessione.h"
#include "platform/database/database.h"
#include "platform/system/file.h"
#include "platform/system/orologio.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

/// Arguments in one text, "~" for an empty one.
QStringList Parole(const QString& Riga)
{
    QStringList Tutte = Riga.split(u' ');
    for (QString& Una : Tutte)
        Una = Una == u"~" ? QString() : Una.replace(u'_', u' ');
    return Tutte;
}

}  // namespace

class TestCalcoli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void risponde_data();
    void risponde();
    void rifiuta_data();
    void rifiuta();
    void tuttiInsieme_data();
    void tuttiInsieme();
    void recordPerUnoScript_data();
    void recordPerUnoScript();
    void archivioDellUtentePrima();
    void archivioGuasto();
    void ultimoTassoEUltimoIndice();
    void sabatoARitrosoDetto();
    void aumentoSenzaAvviso();
    void tassoAZero();
    void senzaComuni();
    void letturaCheNonTorna();
};
PROVA(TestCalcoli);

void TestCalcoli::init()
{
    AzzeraSessione();
    InstallaOrologio([] { return QDateTime(QDate(2026, 11, 20), QTime(10, 0)); });
}

void TestCalcoli::cleanup()
{
    InstallaOrologio({});
}

void TestCalcoli::risponde_data()
{
    QTest::addColumn<QString>("Argomenti");
    QTest::addColumn<QString>("Risposta");

    QTest::newRow("termine posticipato")
        << u"termini 20/07/2012 20 giorni 1 0 0 successiva"_s << u"24/09/2012 (Posticipata)"_s;
    QTest::newRow("termine anticipato")
        << u"termini 20/09/2012 10 giorni 1 0 0 antecedente"_s << u"26/07/2012 (Anticipata)"_s;
    QTest::newRow("termine non mosso") << u"termini 31/01/2012 2 Mesi 0 0 0 successiva"_s << u"29/03/2012"_s;
    QTest::newRow("termine in anni, data breve")
        << u"termini 1/2/12 3 anni 0 0 0 successiva"_s << u"02/02/2015 (Posticipata)"_s;
    QTest::newRow("termine con le scelte della finestra appena aperta")
        << u"termini 20/07/2012 20 giorni"_s << u"24/09/2012 (Posticipata)"_s;
    QTest::newRow("sequenza del 183")
        << u"sequenziali 10/07/2012 183 1 0"_s << u"24/09/2012 (Posticipato); 24/10/2012; 13/11/2012"_s;
    QTest::newRow("sequenza del 190") << u"sequenziali 12/11/2012 190 0 0"_s << u"11/01/2013; 31/01/2013"_s;
    QTest::newRow("codice dal nome del comune")
        << u"codfis Rossi Mario 01/01/1980 M roma"_s << u"RSSMRA80A01H501U"_s;
    QTest::newRow("codice dal codice del comune")
        << u"codfis De_Luca Gianfranco 18/05/1975 m d704"_s << u"DLCGFR75E18D704J"_s;
    QTest::newRow("codice letto") << u"codfis --leggi RSSMRA85M45F205K"_s
                                  << u"05/08/1985; femmina; Milano (MI)"_s;
    QTest::newRow("codice letto, nato all'estero")
        << u"codfis --leggi RSSMRA80A01Z110B"_s << u"01/01/1980; maschio; Francia (stato estero)"_s;
    QTest::newRow("codice letto, omocodo") << u"codfis --leggi RSSMRA80A01H50MM"_s
                                           << u"01/01/1980; maschio; Roma (RM); Codice omocodo: ha lettere "
                                              u"al posto di cifre. La forma di base è "
                                              "RSSMRA80A01H501U."_s;
    QTest::newRow("comune senza accento") << u"codfis Fo Anna 1-1-1980 F forli'"_s << u"FOXNNA80A41D704I"_s;
    QTest::newRow("nessun comune") << u"codfis Fo Anna 1-1-1980 F ~"_s << u"FOXNNA80A41F"_s;
    QTest::newRow("contributo ordinario") << u"contributo 1100,005 ordinario"_s << u"43,00"_s;
    QTest::newRow("contributo ridotto") << u"contributo 1.000 ridotto"_s << u"21,50"_s;
    QTest::newRow("contributo tributario") << u"contributo 2582,29 tributario"_s << u"60,00"_s;
    QTest::newRow("interessi legali")
        << u"interessi legali 1000 Euro ~ 01/01/2012 31/12/2012 0"_s << u"25,07"_s;
    QTest::newRow("interessi con le righe")
        << u"--righe interessi legali 1000 Euro ~ 30/12/2013 02/01/2014"_s
        << u"0,19|30/12/2013;31/12/2013;2,5;2;0,14|01/01/2014;02/01/2014;1;2;0,05"_s;
    QTest::newRow("interessi senza un giorno")
        << u"interessi legali 1000 Euro ~ 02/01/2012 01/01/2012 --righe"_s << u"0,00"_s;
    QTest::newRow("mora dopo il 2012")
        << u"interessi mora 5000 euro ~ 01/01/2013 30/06/2013 1"_s << u"216,95"_s;
    QTest::newRow("interessi in lire")
        << u"interessi legali 1936270 Lire ~ 01/01/2001 31/12/2001"_s << u"35,00"_s;
    QTest::newRow("rivalutazione") << u"istat 1000 Euro 01/01/2020 01/01/2024"_s
                                   << u"1,16164; 1.161,64; 161,64; 16,164"_s;
    QTest::newRow("rivalutazione di lire")
        << u"istat 1000000 L 15/03/1985 15/07/2026"_s << u"3,16708; 1.635,67; 1.119,21; 216,708"_s;
}

void TestCalcoli::risponde()
{
    QFETCH(QString, Argomenti);
    QFETCH(QString, Risposta);
    const Esito Avuto = Chiama(Parole(Argomenti));
    QCOMPARE(Avuto.Guasti, QString());
    QCOMPARE(Avuto.Uscita, Risposta + u'\n');
    QCOMPARE(Avuto.Stato, 0);
}

void TestCalcoli::rifiuta_data()
{
    QTest::addColumn<QString>("Argomenti");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Contiene");

    const auto Termini = u"termini "_s;
    QTest::newRow("31/02") << Termini + u"31/02/2012 1 giorni"_s << 1 << u"non è una data valida"_s;
    QTest::newRow("anno 1") << Termini + u"01/01/0001 1 giorni"_s << 1 << u"non è una data valida"_s;
    QTest::newRow("oltre il 9999") << Termini + u"31/12/9999 1 giorni"_s << 1 << u"(5)"_s;
    QTest::newRow("prima del 100") << Termini + u"01/01/0100 1 giorni 0 0 0 antecedente"_s << 1 << u"(5)"_s;
    QTest::newRow("9999 anni") << Termini + u"01/01/2012 9999 anni"_s << 1 << u"(5)"_s;
    QTest::newRow("numero zero") << Termini + u"01/01/2012 0 giorni"_s << 1 << u"Numero di incremento"_s;
    QTest::newRow("numero vuoto") << Termini + u"01/01/2012 ~ giorni"_s << 1 << u"Numero di incremento"_s;
    QTest::newRow("numero negativo") << Termini + u"01/01/2012 -3 giorni"_s << 1 << u"da 1 a 9999"_s;
    QTest::newRow("numero con i decimali") << Termini + u"01/01/2012 1,5 giorni"_s << 1 << u"da 1 a 9999"_s;
    QTest::newRow("numero di cinque cifre")
        << Termini + u"01/01/2012 10000 giorni"_s << 1 << u"da 1 a 9999"_s;
    QTest::newRow("numero a lettere") << Termini + u"01/01/2012 dieci giorni"_s << 1 << u"numero: «dieci»"_s;
    QTest::newRow("tipo ignoto") << Termini + u"01/01/2012 1 settimane"_s << 1 << u"giorni, mesi, anni"_s;
    QTest::newRow("scelta né 0 né 1") << Termini + u"01/01/2012 1 giorni 2"_s << 1 << u"sospensione"_s;
    QTest::newRow("verso ignoto") << Termini + u"01/01/2012 1 giorni 1 0 0 avanti"_s << 1 << u"antecedente"_s;
    QTest::newRow("due valori soli") << Termini + u"01/01/2012 1"_s << 2 << u"DECORRENZA NUMERO TIPO"_s;
    QTest::newRow("articolo ignoto") << u"sequenziali 01/01/2012 184"_s << 1 << u"183, 190"_s;
    QTest::newRow("udienza vuota") << u"sequenziali ~ 183"_s << 1
                                   << u"La Data udienza indicata non è valida!"_s;
    QTest::newRow("nascita inesistente")
        << u"codfis Rossi Mario 30/02/1980 M H501"_s << 1 << u"La data di nascita non e' valida. (13)"_s;
    QTest::newRow("codice letto corto") << u"codfis --leggi RSSMRA80A01"_s << 1
                                        << u"Un codice fiscale ha 16 caratteri: questo ne ha 11. (5)"_s;
    QTest::newRow("codice letto vuoto") << u"codfis --leggi ~"_s << 1 << u"Manca il codice fiscale (5)"_s;
    QTest::newRow("lettura di altro") << u"istat --leggi 1 e 01/01/2012 01/01/2013"_s << 2
                                      << u"L'opzione --leggi non vale per il comando istat"_s;
    QTest::newRow("sesso ignoto") << u"codfis Rossi Mario 01/01/1980 X H501"_s << 1 << u"m, f"_s;
    QTest::newRow("comune ignoto") << u"codfis Rossi Mario 01/01/1980 M Roncisvalle"_s << 1
                                   << u"Comune non in elenco: «Roncisvalle»"_s;
    QTest::newRow("contributo di lettere") << u"contributo abc"_s << 1 << u"valore: «abc»"_s;
    QTest::newRow("contributo di due numeri") << u"contributo 1-2"_s << 1 << u"(13)"_s;
    QTest::newRow("contributo col punto") << u"contributo 12.5"_s << 1 << u"(13)"_s;
    QTest::newRow("contributo vuoto") << u"contributo ~"_s << 1 << u"(13)"_s;
    QTest::newRow("tabella ignota") << u"contributo 1 penale"_s << 1 << u"ordinario, ridotto, tributario"_s;
    const auto Date = u" 01/01/2012 31/12/2012"_s;
    QTest::newRow("capitale di lettere")
        << u"interessi legali abc Euro ~"_s + Date << 1 << u"capitale: «abc»"_s;
    QTest::newRow("capitale vuoto") << u"interessi legali ~ Euro ~"_s + Date << 1
                                    << u"l'importo del capitale"_s;
    QTest::newRow("capitale di lettere, fine prima dell'inizio")
        << u"interessi legali abc Euro ~ 02/01/2012 01/01/2012"_s << 1 << u"capitale: «abc»"_s;
    QTest::newRow("aumento di lettere")
        << u"interessi legali 1 Euro due"_s + Date << 1 << u"aumento: «due»"_s;
    QTest::newRow("valuta ignota") << u"interessi legali 1 Dollari ~"_s + Date << 1 << u"valuta"_s;
    QTest::newRow("legali prima del 1957")
        << u"interessi legali 1 Euro ~ 31/12/1956 01/01/1958"_s << 1 << u"1° gennaio 1957"_s;
    QTest::newRow("mora prima del 2002")
        << u"interessi mora 1 Euro ~ 08/08/2002 01/01/2003"_s << 1 << u"9 agosto 2002"_s;
    QTest::newRow("mora dopo il 2012 da prima")
        << u"interessi mora 1 Euro ~ 31/12/2012 01/01/2014 1"_s << 1 << u"01/01/2013!"_s;
    QTest::newRow("indice iniziale mancante")
        << u"istat 1 Euro 01/12/1946 01/01/2000"_s << 1 << u"indici Istat non aggiornati (12/1946)."_s;
    QTest::newRow("date uguali") << u"istat 1 Euro 01/01/2000 01/01/2000"_s << 1
                                 << u"non è superiore di quella di partenza"_s;
    QTest::newRow("data futura") << u"istat 1 Euro 01/01/2000 21/11/2026"_s << 1
                                 << u"successive a quella odierna"_s;
    QTest::newRow("importo di lettere")
        << u"istat uno Euro 01/01/2000 01/01/2001"_s << 1 << u"importo: «uno»"_s;
    QTest::newRow("righe di un altro comando") << u"--righe contributo 1"_s << 2 << u"--righe"_s;
}

void TestCalcoli::rifiuta()
{
    QFETCH(QString, Argomenti);
    QFETCH(int, Stato);
    QFETCH(QString, Contiene);
    const Esito Avuto = Chiama(Parole(Argomenti));
    QCOMPARE(Avuto.Stato, Stato);
    QCOMPARE(Avuto.Uscita, QString());
    QVERIFY2(Avuto.Guasti.contains(Contiene), qPrintable(Avuto.Guasti));
}

void TestCalcoli::tuttiInsieme_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<QByteArrayList>("Ingresso");
    QTest::addColumn<QString>("Risposta");

    QTest::newRow("termini")
        << QStringList{u"termini"_s}
        << QByteArrayList{"20/07/2012;20;giorni;1;0;0;successiva\n", "31/02/2012;1;giorni;1;0;0;successiva\n",
                          "05/01/2013;10;giorni;0;0;0;antecedente"}
        << u"24/09/2012 (Posticipata)\nerrore: La Data di Decorrenza indicata non è una data valida! (5)\n"
           "24/12/2012 (Anticipata)\n"_s;
    QTest::newRow("sequenziali") << QStringList{u"sequenziali"_s} << QByteArrayList{"12/11/2012;190;0;0"}
                                 << u"11/01/2013; 31/01/2013\n"_s;
    QTest::newRow("codici") << QStringList{u"codfis"_s}
                            << QByteArrayList{"Rossi;Mario;01/01/1980;M;Roma",
                                              "D'Angelo;Luis;28/02/1999;M;L'Aquila",
                                              "Nicolò;Andrea;31/12/2003;F;Milano"}
                            << u"RSSMRA80A01H501U\nDNGLSU99B28A345X\nNCLNDR03T71F205H\n"_s;
    QTest::newRow("contributi")
        << QStringList{u"contributo"_s} << QByteArrayList{"1000;ordinario", "1000;ridotto", "1-2;ordinario"}
        << u"43,00\n21,50\nerrore: valore: «1-2»: Tipo di dato non corrispondente (13)\n"_s;
    QTest::newRow("interessi, una riga per caso")
        << QStringList{u"interessi"_s, u"--righe"_s}
        << QByteArrayList{"legali;1000;Euro;;01/01/2012;31/12/2012;0",
                          "legali;1000;Euro;;31/12/1956;31/12/2012;0"}
        << u"25,07|01/01/2012;31/12/2012;2,5;366;25,07\n"
           "errore: Per il tasso legale, non sono ammesse date antecedenti al 1° gennaio 1957 (5)\n"_s;
    QTest::newRow("rivalutazioni") << QStringList{u"istat"_s}
                                   << QByteArrayList{"1000;Euro;01/01/2020;01/01/2024"}
                                   << u"1,16164; 1.161,64; 161,64; 16,164\n"_s;
}

void TestCalcoli::tuttiInsieme()
{
    QFETCH(QStringList, Argomenti);
    QFETCH(QByteArrayList, Ingresso);
    const Esito Avuto = Chiama(Argomenti + QStringList{u"--batch"_s}, Ingresso);
    QTEST(Avuto.Uscita, "Risposta");
    QCOMPARE(Avuto.Stato, 0);
}

void TestCalcoli::recordPerUnoScript_data()
{
    QTest::addColumn<QString>("Argomenti");
    QTest::addColumn<QByteArray>("Record");
    QTest::newRow("termine") << u"termini 20/07/2012 20 giorni"_s
                             << QByteArray(R"({"scadenza":"24/09/2012","spostata":true})");
    QTest::newRow("sequenza")
        << u"sequenziali 12/11/2012 190 0"_s
        << QByteArray(
               R"({"termini":[{"scadenza":"11/01/2013","spostata":false},{"scadenza":"31/01/2013","spostata":false}]})");
    QTest::newRow("codice") << u"codfis Rossi Mario 01/01/1980 M H501"_s
                            << QByteArray(R"({"codice":"RSSMRA80A01H501U"})");
    QTest::newRow("codice letto")
        << u"codfis --leggi RSSMRA12M45A001X"_s
        << QByteArray(
               R"({"base":"RSSMRA12M45A001S","codiceComune":"A001","comuni":[{"nome":"Abano","provincia":"PD"},{"nome":"Abano Terme","provincia":"PD"}],"controllo":"S","nascita":["05/08/2012","05/08/1912"],"omocodo":false,"sesso":"F","torna":false})");
    QTest::newRow("contributo") << u"contributo 1000 ridotto"_s << QByteArray(R"({"contributo":21.5})");
    QTest::newRow("interessi")
        << u"interessi legali 1000 Euro ~ 01/01/2012 31/12/2012"_s
        << QByteArray(
               R"({"righe":[{"al":"31/12/2012","dal":"01/01/2012","giorni":366,"interessi":25.07,"tasso":2.5}],"totale":25.07})");
    QTest::newRow("rivalutazione")
        << u"istat 1000 Euro 01/01/2020 01/01/2024"_s
        << QByteArray(
               R"({"coefficiente":1.16164,"indiceFinale":"119,3","indiceIniziale":"102,7","percento":16.164,"raccordo":"1","rivalutato":1161.64,"rivalutazione":161.64})");
}

void TestCalcoli::recordPerUnoScript()
{
    QFETCH(QString, Argomenti);
    QFETCH(QByteArray, Record);
    const Esito Avuto = Chiama(QStringList{u"--json"_s} + Parole(Argomenti));
    QCOMPARE(Avuto.Uscita.trimmed().toUtf8(), Record);
}

void TestCalcoli::archivioDellUtentePrima()
{
    const QString Utente = NuovaCartella();
    const QStringList Argomenti =
        QStringList{u"--utente"_s, Utente} + Parole(u"interessi legali 36500 Euro ~ 01/01/2012 01/01/2012"_s);
    QCOMPARE(Chiama(Argomenti).Uscita, u"2,50\n"_s);  // the program's own archive
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"Tassi.dat"_s, Utente + u"tassi.dat"_s));
    OpenDatabase(Utente + u"tassi.dat"_s)
        .Execute(u"UPDATE InteressiLegali SET Tasso=5 WHERE Dal='2012-01-01'"_s);
    QCOMPARE(Chiama(Argomenti).Uscita, u"5,00\n"_s);
}

void TestCalcoli::archivioGuasto()
{
    const QString Utente = NuovaCartella();
    ScriviFile(Utente + u"Tassi.dat"_s, LeggiFile(ProgrammaDiProva() + u"Tassi.dat"_s).left(5000));
    for (const auto& Comando :
         {u"interessi legali 1 Euro ~ 01/01/2012 01/01/2012"_s, u"istat 1 Euro 01/01/2012 01/01/2013"_s}) {
        const Esito Avuto = Chiama(QStringList{u"--utente"_s, Utente} + Parole(Comando));
        QCOMPARE(Avuto.Stato, 1);
        QVERIFY2(Avuto.Guasti.contains(u"(3343)"), qPrintable(Avuto.Guasti));
    }
}

// A script is asked nothing: it is told, and gets the figure.
void TestCalcoli::ultimoTassoEUltimoIndice()
{
    const Esito Interessi = Chiama(Parole(u"interessi legali 36500 Euro ~ 31/12/2026 01/01/2027 --righe"_s));
    QCOMPARE(Interessi.Uscita, u"3,20|31/12/2026;31/12/2026;1,6;1;1,60|01/01/2027;01/01/2027;1,6;1;1,60\n"_s);
    QCOMPARE(Interessi.Guasti, u"Il calcolo verrà effettuato con l'ultimo indice disponibile.\n"_s);
    QCOMPARE(Interessi.Stato, 0);
    const Esito Istat = Chiama(Parole(u"istat 1000 Euro 01/07/2026 20/11/2026"_s));
    QCOMPARE(Istat.Uscita, u"1,00582; 1.005,82; 5,82; 0,582\n"_s);
    QCOMPARE(Istat.Guasti, u"Il calcolo verrà effettuato utilizzando l'ultimo indice disponibile.\n"_s);
    QCOMPARE(Istat.Stato, 0);
}

void TestCalcoli::sabatoARitrosoDetto()
{
    const Esito Avuto = Chiama(Parole(u"termini 10/06/2013 9 giorni 0 0 1 antecedente"_s));
    QCOMPARE(Avuto.Uscita, u"01/06/2013\n"_s);  // a Saturday
    QVERIFY(Avuto.Guasti.startsWith(u"La proroga del sabato"));
    QCOMPARE(Avuto.Stato, 0);
}

void TestCalcoli::aumentoSenzaAvviso()
{
    const Esito Avuto = Chiama(Parole(u"interessi legali 1000 Euro 1,5 01/01/2012 31/12/2012"_s));
    QCOMPARE(Avuto.Uscita, u"40,11\n"_s);
    QCOMPARE(Avuto.Guasti, QString());
}

void TestCalcoli::tassoAZero()
{
    const QString Utente = NuovaCartella();
    QVERIFY(QFile::copy(ProgrammaDiProva() + u"Tassi.dat"_s, Utente + u"Tassi.dat"_s));
    OpenDatabase(Utente + u"Tassi.dat"_s).Execute(u"UPDATE InteressiLegali SET Tasso=0"_s);
    const Esito Avuto = Chiama(QStringList{u"--utente"_s, Utente} +
                               Parole(u"interessi legali 1 Euro ~ 01/01/2012 01/01/2013"_s));
    QCOMPARE(Avuto.Stato, 1);
    QVERIFY2(Avuto.Guasti.contains(u"tasso a zero"), qPrintable(Avuto.Guasti));
}

void TestCalcoli::senzaComuni()
{
    const Esito Avuto = Chiama(QStringList{u"--programma"_s, NuovaCartella()} +
                               Parole(u"codfis Rossi Mario 01/01/1980 M Roma"_s));
    QCOMPARE(Avuto.Stato, 1);
    QVERIFY2(Avuto.Guasti.contains(u"(3024)"), qPrintable(Avuto.Guasti));
}

// The code is told as far as it can be read, and the status says that it is wrong.
void TestCalcoli::letturaCheNonTorna()
{
    const Esito Avuto = Chiama({u"codfis"_s, u"--leggi"_s, u"RSSMRA85M45F205X"_s});
    QCOMPARE(Avuto.Stato, 1);
    QCOMPARE(Avuto.Uscita,
             u"05/08/1985; femmina; Milano (MI); L'ultima lettera è errata: dovrebbe essere K. Il "
             "codice è scritto male.\n"_s);
    QCOMPARE(Chiama({u"codfis"_s, u"--leggi"_s, u"RSSMRA85M45F205K"_s}).Stato, 0);
}

#include "TestCalcoli.moc"
