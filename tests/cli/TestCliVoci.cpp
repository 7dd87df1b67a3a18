// The items of a tariff from the command line.
#include "chiamata.h"

#include "core/sessione.h"
#include "platform/database/database.h"
#include "platform/system/file.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

class TestCliVoci : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void risponde_data();
    void risponde();
    void rifiuta_data();
    void rifiuta();
    void ogniUfficio();
    void comeInParcella_data();
    void comeInParcella();
    void tuttiInsieme();
    void perUnoScript();
    void importoNullo_data();
    void importoNullo();
    void tariffaGuasta_data();
    void tariffaGuasta();
};
PROVA(TestCliVoci);

namespace {

QStringList Parole(const QString& Riga)
{
    QStringList Tutte = Riga.split(u'~');
    Tutte.prepend(u"voci"_s);
    return Tutte;
}

QStringList ConTariffa(const QString& Riga)
{
    return QStringList{u"--tariffa"_s, u"55"_s} + Parole(Riga);
}

QJsonObject Record(const QStringList& Argomenti)
{
    const Esito Avuto = Chiama(QStringList{u"--json"_s} + Argomenti);
    if (Avuto.Stato != 0)
        QTest::qFail(qPrintable(Avuto.Guasti), __FILE__, __LINE__);
    return QJsonDocument::fromJson(Avuto.Uscita.toUtf8()).object();
}

}  // namespace

void TestCliVoci::init()
{
    AzzeraSessione();
}

void TestCliVoci::risponde_data()
{
    QTest::addColumn<bool>("InVigore");
    QTest::addColumn<QString>("Argomenti");
    QTest::addColumn<QStringList>("Attese");

    QTest::newRow("tribunale, oggi")
        << true << u"civile~102~30.000"_s
        << QStringList{
               u"301|Fase di studio della controversia|850,50|1.701,00|2.551,50"_s,
               u"302|Fase introduttiva del giudizio|602,00|1.204,00|1.806,00"_s,
               u"303|Fase istruttoria e/o di trattazione|903,00|1.806,00|2.709,00"_s,
               u"304|Fase decisionale|1.452,50|2.905,00|4.357,50"_s,
               u"D.m. 55/2014 - Tribunale - cognizione ordinaria e sommaria - da € 26.000,01 a € 52.000,00: 4"_s};
    QTest::newRow("tribunale, 2012")
        << false << u"CIV~tribunale ordinario~30000"_s
        << QStringList{u"1|Fase di studio della controversia|600,00|1.200,00|1.920,00"_s,
                       u"2|Fase introduttiva del procedimento|300,00|600,00|960,00"_s,
                       u"3|Fase istruttoria|360,00|1.200,00|3.000,00"_s,
                       u"4|Fase decisoria|750,00|1.500,00|2.400,00"_s,
                       u"D.m. 140/2012 - Tribunale ordinario - da € 25.000,01 a € 50.000,00: 4"_s};
    QTest::newRow("gradino oltre 520.000")
        << true << u"Civile~106~1.500.000,00"_s
        << QStringList{u"311|Atto di precetto|479,12|958,23|1.437,35"_s,
                       u"D.m. 55/2014 - Atto di precetto - da € 1.000.000,01 a € 2.000.000,00: 1"_s};
    QTest::newRow("valore indeterminato")
        << true << u"CIV~108~indeterminato"_s
        << QStringList{
               u"313|Procedimento monitorio: studio, istruttoria, conclusiva|685,00|1.370,00|2.055,00"_s,
               u"D.m. 55/2014 - Procedimenti monitori (ingiunzione) - Valore Indeterminato (26.000 - 52.000): 1"_s};
    QTest::newRow("di particolare importanza")
        << true << u"CIV~108~valore indeterminato di particolare importanza (fino a 520.000)"_s
        << QStringList{
               u"313|Procedimento monitorio: studio, istruttoria, conclusiva|2.197,00|4.394,00|6.591,00"_s,
               u"D.m. 55/2014 - Procedimenti monitori (ingiunzione) - Valore Indeterminato di particolare importanza (fino a 520.000): 1"_s};
    QTest::newRow("ingiunzione indeterminata nel 2012")
        << false << u"CIV~14~indeterminato"_s
        << QStringList{
               u"19|Procedimento per ingiunzione|non prevista"_s, u"20|Atto di precetto|non prevista"_s,
               u"D.m. 140/2012 - Tribunale - ingiunzione e precetto - Valore Indeterminato o indeterminabile: 2"_s};
    QTest::newRow("giudice di pace oltre la sua tabella")
        << true << u"CIV~101~26.000,01"_s
        << QStringList{u"301|Fase di studio della controversia|non prevista"_s,
                       u"302|Fase introduttiva del giudizio|non prevista"_s,
                       u"303|Fase istruttoria e/o di trattazione|non prevista"_s,
                       u"304|Fase decisionale|non prevista"_s,
                       u"D.m. 55/2014 - Giudice di pace - da € 26.000,01 a € 52.000,00: 4"_s};
    QTest::newRow("penale senza valore")
        << true << u"pen~145~"_s
        << QStringList{u"401|Fase di studio della controversia|472,50|945,00|1.417,50"_s,
                       u"402|Fase introduttiva del giudizio|1.323,00|2.646,00|3.969,00"_s,
                       u"403|Fase istruttoria e/o dibattimentale|non prevista"_s,
                       u"404|Fase decisionale|1.370,50|2.741,00|4.111,50"_s,
                       u"D.m. 55/2014 - Corte di cassazione: 4"_s};
    QTest::newRow("stragiudiziale oltre 520.000")
        << true << u"stragiudiziale~~750.000,10"_s
        << QStringList{u"501|Assistenza stragiudiziale|6.532,00|13.064,00|19.596,00"_s,
                       u"502|Mediazione o negoziazione: fase dell'attivazione|non prevista"_s,
                       u"503|Mediazione o negoziazione: fase di negoziazione|non prevista"_s,
                       u"504|Mediazione o negoziazione: conciliazione|non prevista"_s,
                       u"505|Compenso a tempo pattuito, per ogni ora (art. 22-bis)|200,00|350,00|500,00"_s,
                       u"D.m. 55/2014 - da € 520.000,01 a € 2.000.000,00: 5"_s};
}

void TestCliVoci::risponde()
{
    QFETCH(bool, InVigore);
    QFETCH(QString, Argomenti);
    QFETCH(QStringList, Attese);
    const Esito Avuto = Chiama(InVigore ? ConTariffa(Argomenti) : Parole(Argomenti));
    QCOMPARE(Avuto.Guasti, QString());
    QCOMPARE(Avuto.Uscita.trimmed().split(u'\n'), Attese);
    QCOMPARE(Avuto.Stato, 0);
}

void TestCliVoci::rifiuta_data()
{
    QTest::addColumn<QStringList>("Argomenti");
    QTest::addColumn<int>("Stato");
    QTest::addColumn<QString>("Frase");

    QTest::newRow("categoria")
        << ConTariffa(u"tributaria~102~1"_s) << 1
        << u"Errore: categoria: «tributaria» non è fra civile, penale, stragiudiziale, civ, pen, str (5)"_s;
    QTest::newRow("autorità dell'altra tariffa")
        << ConTariffa(u"CIV~2~1"_s) << 1
        << u"Errore: autorità: «2»: la tariffa D.m. 55/2014 non l'ha in questa categoria (5)"_s;
    QTest::newRow("autorità di oggi nel 2012")
        << Parole(u"CIV~102~1"_s) << 1
        << u"Errore: autorità: «102»: la tariffa D.m. 140/2012 non l'ha in questa categoria (5)"_s;
    QTest::newRow("nessuna autorità")
        << ConTariffa(u"PEN~~"_s) << 1
        << u"Errore: autorità: «»: la tariffa D.m. 55/2014 non l'ha in questa categoria (5)"_s;
    QTest::newRow("oltre l'ultimo gradino")
        << ConTariffa(u"CIV~102~16.000.000,01"_s) << 1
        << u"Errore: valore: «16.000.000,01»: non è compreso in nessuno scaglione (5)"_s;
    QTest::newRow("valore zero") << ConTariffa(u"CIV~102~0"_s) << 1
                                 << u"Errore: valore: «0»: non è compreso in nessuno scaglione (5)"_s;
    QTest::newRow("valore che non lo è")
        << ConTariffa(u"CIV~102~molto"_s) << 1
        << u"Errore: valore: «molto»: Tipo di dato non corrispondente (13)"_s;
    QTest::newRow("tariffa sconosciuta")
        << QStringList{u"--tariffa"_s, u"37"_s, u"voci"_s, u"CIV"_s, u"102"_s, u"1"_s} << 2
        << u"Tariffa sconosciuta: 37. Le tariffe sono 140 e 55."_s;
    QTest::newRow("tariffa altrove") << QStringList{u"--tariffa"_s, u"55"_s, u"lettere"_s, u"1"_s} << 2
                                     << u"L'opzione --tariffa non vale per il comando lettere"_s;
    QTest::newRow("valori che mancano")
        << ConTariffa(u"CIV~102"_s) << 2 << u"Uso: calcanova-cli voci CATEGORIA AUTORITA VALORE"_s;
}

void TestCliVoci::rifiuta()
{
    QFETCH(QStringList, Argomenti);
    const Esito Avuto = Chiama(Argomenti);
    QTEST(Avuto.Stato, "Stato");
    QTEST(Avuto.Guasti.trimmed(), "Frase");
    QCOMPARE(Avuto.Uscita, QString());
}

/// Every office of both tariffs answers, each item once and with amounts that do not fall.
void TestCliVoci::ogniUfficio()
{
    int Viste = 0;
    for (const auto& [Sigla, File] :
         {std::pair{u"140"_s, u"parcelle.mdb"_s}, std::pair{u"55"_s, u"parcelle55.mdb"_s}}) {
        const Database Base = OpenDatabase(ProgrammaDiProva() + File, true);
        for (Recordset Uffici = Base.OpenRecordset(u"SELECT * FROM Autorità"_s); !Uffici.Eof();
             Uffici.MoveNext()) {
            const QJsonObject Avuto =
                Record({u"--tariffa"_s, Sigla, u"voci"_s, Uffici.Value(u"TipoAut"_s).toString(),
                        QString::number(Uffici.Value(u"IDAut"_s).toInt()), u"4000"_s});
            const QJsonArray Voci = Avuto[u"voci"_s].toArray();
            QVERIFY(!Voci.isEmpty());
            for (const QJsonValue& Voce : Voci) {
                QVERIFY(Voce[u"medio"_s].isNull() ||
                        (Voce[u"minimo"_s].toDouble() <= Voce[u"medio"_s].toDouble() &&
                         Voce[u"medio"_s].toDouble() <= Voce[u"massimo"_s].toDouble()));
                ++Viste;
            }
        }
    }
    QVERIFY2(Viste > 200, qPrintable(QString::number(Viste)));
}

void TestCliVoci::comeInParcella_data()
{
    QTest::addColumn<QString>("Sigla");
    QTest::addColumn<QString>("Categ");
    QTest::addColumn<int>("Ufficio");
    QTest::addColumn<double>("Valore");
    QTest::addColumn<int>("Voce");

    QTest::newRow("half a cent out of court") << u"55"_s << u"STR"_s << 161 << 520003.0 << 1;
    QTest::newRow("half a cent of a step") << u"55"_s << u"CIV"_s << 102 << 3e6 << 1;
    QTest::newRow("half a euro") << u"55"_s << u"CIV"_s << 103 << 4000.0 << 2;
    QTest::newRow("criminal") << u"55"_s << u"PEN"_s << 140 << 0.0 << 3;
    QTest::newRow("2012, a share of the value") << u"140"_s << u"STR"_s << 41 << 12345.67 << 6;
    QTest::newRow("2012, out of a table") << u"140"_s << u"CIV"_s << 8 << 20000.0 << 4;
}

/// What is listed is what a note's line takes.
void TestCliVoci::comeInParcella()
{
    QFETCH(QString, Sigla);
    QFETCH(QString, Categ);
    QFETCH(int, Ufficio);
    QFETCH(double, Valore);
    QFETCH(int, Voce);
    QJsonObject Descrizione{{u"tariffa"_s, Sigla},
                            {u"categoria"_s, Categ},
                            {u"autorita"_s, Ufficio},
                            {u"precarica"_s, false},
                            {u"onorari"_s, QJsonArray{QJsonObject{{u"voce"_s, Voce}}}}};
    if (Valore > 0)
        Descrizione[u"valore"_s] = Valore;
    const QString Cartella = NuovaCartella();
    ScriviFile(Cartella + u"nota.json"_s, QJsonDocument(Descrizione).toJson());
    const Esito Creata = Chiama({u"crea"_s, Cartella + u"nota.json"_s, Cartella + u"nota.mdb"_s});
    QCOMPARE(Creata.Guasti, QString());
    const QJsonObject Riga =
        QJsonDocument::fromJson(
            Chiama({u"nota"_s, Cartella + u"nota.mdb"_s}).Uscita.toUtf8())[u"onorari"_s][0]
            .toObject();
    const QJsonArray Voci = Record({u"--tariffa"_s, Sigla, u"voci"_s, Categ, QString::number(Ufficio),
                                    QString::number(Valore, 'f', 2).replace(u'.', u',')})[u"voci"_s]
                                .toArray();
    const auto Listata = std::ranges::find_if(Voci, [&](const QJsonValue& Elencata) {
        return Elencata[u"descrizione"_s] == Riga[u"descrizione"_s];
    });
    QVERIFY(Listata != Voci.end());
    for (const QString& Importo : {u"minimo"_s, u"medio"_s, u"massimo"_s})
        QCOMPARE((*Listata)[Importo].toDouble(), Riga[Importo].toDouble());
}

void TestCliVoci::tuttiInsieme()
{
    const Esito Avuto = Chiama({u"--batch"_s, u"--tariffa"_s, u"55"_s, u"voci"_s},
                               {"CIV;106;1000\n", "CIV;999;1\n", "CIV;118;1.000,00\n"});
    QCOMPARE(Avuto.Stato, 0);
    QCOMPARE(
        Avuto.Uscita.trimmed().split(u'\n'),
        (QStringList{u"311|Atto di precetto|71,00|142,00|213,00"_s,
                     u"D.m. 55/2014 - Atto di precetto - fino a € 1.100,00: 1"_s,
                     u"errore: autorità: «999»: la tariffa D.m. 55/2014 non l'ha in questa categoria (5)"_s,
                     u"314|Iscrizione ipotecaria o affare tavolare|34,00|68,00|102,00"_s,
                     u"D.m. 55/2014 - Iscrizione ipotecaria e affari tavolari - fino a € 1.100,00: 1"_s}));
}

void TestCliVoci::perUnoScript()
{
    const QJsonObject Avuto = Record(ConTariffa(u"STR~161~750000"_s));
    QCOMPARE(Avuto[u"tariffa"_s].toString(), u"55"_s);
    QCOMPARE(Avuto[u"categoria"_s].toString(), u"STR"_s);
    QCOMPARE(Avuto[u"autorita"_s][u"numero"_s].toInt(), 161);
    QCOMPARE(Avuto[u"scaglione"_s][u"numero"_s].toInt(), 7);
    QCOMPARE(Avuto[u"valore"_s].toDouble(), 750000.0);
    const QJsonArray Voci = Avuto[u"voci"_s].toArray();
    QCOMPARE(Voci.size(), 5);
    QCOMPARE(Voci[0][u"medio"_s].toDouble(), 13064.0);
    QVERIFY(Voci[1][u"medio"_s].isNull());
    QCOMPARE(Voci[0][u"quantita"_s].toBool(), false);
    QCOMPARE(Voci[4][u"quantita"_s].toBool(), true);
    QVERIFY(!Record(ConTariffa(u"PEN~138~"_s)).contains(u"scaglione"_s));
}

void TestCliVoci::importoNullo_data()
{
    QTest::addColumn<QString>("Sigla");
    QTest::addColumn<QString>("File");
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<QString>("Ufficio");
    QTest::addColumn<QString>("Attesa");
    QTest::newRow("2012: counts 0")
        << u"140"_s << u"parcelle.mdb"_s
        << u"UPDATE OnorariCiv SET \"3Med\"=NULL, \"3Min\"=NULL, \"3Max\"=NULL WHERE IDAutor=2 AND CodOno=3"_s
        << u"2"_s << u"3|Fase istruttoria|0,00|0,00|0,00"_s;
    QTest::newRow("in force: one that lacks is as good as none")
        << u"55"_s << u"parcelle55.mdb"_s
        << u"UPDATE OnorariCiv SET \"4Med\"=NULL WHERE IDAutor=102 AND CodOno=303"_s << u"102"_s
        << u"303|Fase istruttoria e/o di trattazione|non prevista"_s;
}

/// A catalogue that was edited by hand is read as a note reads it.
void TestCliVoci::importoNullo()
{
    QFETCH(QString, Sigla);
    QFETCH(QString, File);
    QFETCH(QString, Sql);
    QFETCH(QString, Ufficio);
    QFETCH(QString, Attesa);
    const QString Programma = NuovaCartella();
    QVERIFY(QFile::copy(ProgrammaDiProva() + File, Programma + File));
    QVERIFY(QFile::setPermissions(Programma + File, QFile::ReadOwner | QFile::WriteOwner));
    OpenDatabase(Programma + File).Execute(Sql);
    const Esito Avuto = Chiama(
        {u"--programma"_s, Programma, u"--tariffa"_s, Sigla, u"voci"_s, u"CIV"_s, Ufficio, u"30000"_s});
    QCOMPARE(Avuto.Guasti, QString());
    QVERIFY2(Avuto.Uscita.split(u'\n').contains(Attesa), qPrintable(Avuto.Uscita));
}

void TestCliVoci::tariffaGuasta_data()
{
    QTest::addColumn<QString>("Sql");

    QTest::newRow("missing") << QString();
    QTest::newRow("of the decree of before") << u"DROP TABLE Tariffa"_s;
    QTest::newRow("of another one") << u"UPDATE Tariffa SET Codice='37'"_s;
    QTest::newRow("without its brackets") << u"DROP TABLE Scaglioni"_s;
    QTest::newRow("without a column") << u"ALTER TABLE OnorariCiv DROP COLUMN \"3Min\""_s;
}

/// A database that is missing, another one's, or edited by hand: one sentence, and nothing that passes for an
/// answer.
void TestCliVoci::tariffaGuasta()
{
    QFETCH(QString, Sql);
    const QString Programma = NuovaCartella();
    const QString File = Programma + u"parcelle55.mdb"_s;
    if (!Sql.isEmpty()) {
        QVERIFY(QFile::copy(ProgrammaDiProva() + u"parcelle55.mdb"_s, File));
        QVERIFY(QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner));
        OpenDatabase(File).Execute(Sql);
    }
    const Esito Avuto = Chiama(QStringList{u"--programma"_s, Programma} + ConTariffa(u"CIV~102~20000"_s));
    QCOMPARE(Avuto.Stato, 1);
    QCOMPARE(Avuto.Uscita, QString());
    QVERIFY2(Avuto.Guasti.startsWith(u"Errore: "), qPrintable(Avuto.Guasti));
    QCOMPARE(Avuto.Guasti.trimmed().count(u'\n'), 0);
    if (Sql.isEmpty() || Sql.contains(u"Tariffa"))
        QVERIFY2(Avuto.Guasti.contains(u"parcelle55.mdb"), qPrintable(Avuto.Guasti));
}

#include "TestCliVoci.moc"
