// What a sender puts beside a database: nothing of it reaches another file, or changes what the database
// holds.
#include "supporto/prova.h"

#include "platform/database/connessione.h"
#include "platform/database/copiaintera.h"
#include "platform/database/giornale.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "supporto/guasti.h"

#include <QScopeGuard>
#include <QThread>
#include <QtEndian>

#include <memory>

#include <sqlite3.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// Of a journal beside a file: what it is, and what there is to do.
QString FraseDelGiornale(const QString& File, const QString& Consiglio)
{
    return u"Il file nota.mdb-journal, che sta accanto al database nella cartella "_s + CartellaFile(File) +
           u", "_s + Consiglio;
}
const QString NonGliCorrisponde = u"non gli corrisponde: spostarlo altrove e riprovare"_s;
const QString DiUnAltroProgramma =
    u"è di una scrittura, in corso o interrotta, di un altro programma: aprire prima il database con quello e riprovare"_s;

const QByteArray Segno = QByteArray::fromHex("d9d505f920a163d7");

QByteArray Numero(quint32 Valore)
{
    QByteArray Byte(4, '\0');
    qToBigEndian(Valore, Byte.data());
    return Byte;
}

/// A journal of no page: what it says is how long the file was.
QByteArray TestataGiornale(quint32 Pagine)
{
    constexpr qsizetype Settore = 512;
    const QByteArray Testata =
        Segno + Numero(0) + Numero(0) + Numero(Pagine) + Numero(Settore) + Numero(4096);
    return Testata.leftJustified(Settore, '\0');
}

}  // namespace

class TestDatabaseOstile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void ilGiornaleCheNeNominaUnAltro_data();
    void ilGiornaleCheNeNominaUnAltro();
    void ilGiornaleCheAllunga_data();
    void ilGiornaleCheAllunga();
    void ilGiornaleCheAllungaDietroUnCollegamento();
    void ilGiornaleCheSeNeVa();
    void ilLogDiUnAltro();
    void ilLogProprioSiLegge();
    void inLetturaNonSiLasciaNulla();
    void interrottoInSolaLettura();
    void privatoDalPrimoByte();
    void unaCellaHaUnLimite();
    void leAnnotazioniDiUnAltro_data();
    void leAnnotazioniDiUnAltro();
    void troppeAnnotazioni();
    void siRitoccaIlProprio();

private:
    /// Its one row.
    [[nodiscard]] static int Valore(const QString& Quale);
    /// A copy with a log that holds a later value, as a program leaves it that was killed.
    void ConLog(const QString& Copia) const;

    QString Cartella;
    QString File;
};
PROVA(TestDatabaseOstile);

void TestDatabaseOstile::init()
{
    Cartella = NuovaCartella();
    File = Cartella + u"nota.mdb"_s;
    const Database Db = CreateDatabase(File);
    Db.Execute(u"CREATE TABLE T (a INTEGER)"_s);
    Db.Execute(u"INSERT INTO T VALUES (1)"_s);
}

int TestDatabaseOstile::Valore(const QString& Quale)
{
    return OpenDatabase(Quale, true).OpenRecordset(u"T"_s).Value(u"a"_s).toInt();
}

void TestDatabaseOstile::ConLog(const QString& Copia) const
{
    const QString Acceso = Cartella + u"acceso.mdb"_s;
    ScriviFile(Acceso, LeggiFile(File));
    Connessione Aperta(Acceso, Connessione::Modo::Scrittura);
    Aperta.Esegui(u"PRAGMA journal_mode=WAL"_s);
    Aperta.Esegui(u"UPDATE T SET a=2"_s);
    ScriviFile(Copia, LeggiFile(Acceso));
    ScriviFile(Copia + u"-wal"_s, LeggiFile(Acceso + u"-wal"_s));
}

void TestDatabaseOstile::ilGiornaleCheNeNominaUnAltro_data()
{
    QTest::addColumn<bool>("Guardato");
    QTest::newRow("refused at the door") << true;
    QTest::newRow("let in by nobody") << false;
}

void TestDatabaseOstile::ilGiornaleCheNeNominaUnAltro()
{
    QFETCH(bool, Guardato);
    const QString Vittima = Cartella + u"bersaglio.txt"_s;
    ScriviFile(Vittima, "mio");
    const QByteArray Nome = Vittima.toUtf8();
    quint32 Somma = 0;
    for (const char C : Nome)
        Somma += quint32(static_cast<signed char>(C));
    const quint32 Pagine = quint32(QFileInfo(File).size() / 4096);
    const QByteArray Giornale = TestataGiornale(Pagine) + Numero(0x40000000 / 4096 + 1) + Nome +
                                Numero(quint32(Nome.size())) + Numero(Somma) + Segno;
    ScriviFile(File + u"-journal"_s, Giornale);
    const QByteArray Prima = LeggiFile(File);
    TogliGiornale(File);
    QVERIFY2(EsisteFile(File + u"-journal"_s), "the sweep leaves it");
    QVERIFY(LeggiFile(File) == Prima && LeggiFile(File + u"-journal"_s) == Giornale);
    if (Guardato) {
        const ErroreVisto Guasto = ErroreDi([&] { (void)Valore(File); });
        QCOMPARE(Guasto.Numero, 3343);
        QCOMPARE(Guasto.Descrizione, FraseDelGiornale(File, DiUnAltroProgramma));
    } else {
        const Connessione Aperta(File, Connessione::Modo::Scrittura);
        QCOMPARE(NumeroErrore([&] { (void)Istruzione(Aperta, u"SELECT a FROM T"_s).Avanza(); }), 75);
    }
    QVERIFY2(EsisteFile(Vittima) && LeggiFile(Vittima) == "mio", "a file of the user's own");
    // Without it the note is as it was.
    QFile::remove(File + u"-journal"_s);
    QCOMPARE(Valore(File), 1);
}

void TestDatabaseOstile::ilGiornaleCheAllunga_data()
{
    QTest::addColumn<quint32>("Pagine");
    QTest::addColumn<bool>("DiSolaLettura");
    QTest::newRow("a hundred megabytes") << 25600U << false;
    QTest::newRow("of a read-only file") << 25600U << true;
    QTest::newRow("more than any disk") << 0xfffffffeU << false;
}

/// A few bytes beside a note make it fill a disk that keeps no holes in its files.
void TestDatabaseOstile::ilGiornaleCheAllunga()
{
    QFETCH(quint32, Pagine);
    QFETCH(bool, DiSolaLettura);
    const QByteArray Prima = LeggiFile(File);
    const QByteArray Giornale = TestataGiornale(Pagine);
    ScriviFile(File + u"-journal"_s, Giornale);
    TogliGiornale(File);
    QCOMPARE(QFileInfo(File).size(), Prima.size());
    ImpostaSolaLettura(File, DiSolaLettura);
    const ErroreVisto Guasto = ErroreDi([&] { (void)Valore(File); });
    QCOMPARE(QFileInfo(File).size(), Prima.size());
    QCOMPARE(Guasto.Numero, 3343);
    QCOMPARE(Guasto.Descrizione, FraseDelGiornale(File, NonGliCorrisponde));
    QVERIFY(LeggiFile(File) == Prima && LeggiFile(File + u"-journal"_s) == Giornale);
    // One that tells of the file as long as it is says nothing that was cut off.
    ImpostaSolaLettura(File, false);
    ScriviFile(File + u"-journal"_s, TestataGiornale(quint32(Prima.size() / 4096)));
    QCOMPARE(Valore(File), 1);
    QVERIFY(LeggiFile(File) == Prima);
}

/// Who comes by a link meets the journal beside the file that it leads to, not the one beside the link.
void TestDatabaseOstile::ilGiornaleCheAllungaDietroUnCollegamento()
{
    const QString Collegato = NuovaCartella() + u"collegata.mdb"_s;
    QVERIFY(QFile::link(File, Collegato));
    QVERIFY(LeggibileDoveSta(Collegato));
    const QByteArray Prima = LeggiFile(File);
    const QByteArray Giornale = TestataGiornale(25600);
    ScriviFile(File + u"-journal"_s, Giornale);
    ScriviFile(Collegato + u"-journal"_s, TestataGiornale(1));
    TogliGiornale(Collegato);
    QCOMPARE(QFileInfo(File).size(), Prima.size());
    QVERIFY(LeggiFile(File) == Prima && LeggiFile(File + u"-journal"_s) == Giornale);
    QVERIFY2(EsisteFile(Collegato + u"-journal"_s), "of nothing that is here");
    // Beside the link nobody would find it.
    const ErroreVisto Guasto = ErroreDi([&] { (void)LeggibileDoveSta(Collegato); });
    QCOMPARE(Guasto.Numero, 3343);
    QCOMPARE(Guasto.Descrizione, FraseDelGiornale(File, NonGliCorrisponde));
    // Nor does one find it in a folder without a name.
    const QString Dove = QDir::currentPath();
    QVERIFY(QDir::setCurrent(CartellaFile(File)));
    const ErroreVisto SenzaCartella = ErroreDi([&] { (void)LeggibileDoveSta(NomeFile(File)); });
    QVERIFY(QDir::setCurrent(Dove));
    QCOMPARE(SenzaCartella.Descrizione, FraseDelGiornale(File, NonGliCorrisponde));
    ScriviFile(File + u"-journal"_s, TestataGiornale(quint32(Prima.size() / 4096)));
    QFile::remove(Collegato + u"-journal"_s);
    QVERIFY(!LeggibileDoveSta(Collegato));
    TogliGiornale(Collegato);
    QVERIFY(!EsisteFile(File + u"-journal"_s));
    QCOMPARE(Valore(Collegato), 1);
}

/// A colleague's write that has made the file longer than is known here takes its journal away at its end.
void TestDatabaseOstile::ilGiornaleCheSeNeVa()
{
    attese::GiornaleMs = 10000;
    const auto Rimetti = qScopeGuard([] { attese::GiornaleMs = 500; });
    const QString Giornale = File + u"-journal"_s;
    ScriviFile(Giornale, TestataGiornale(25600));
    constexpr int FineMs = 150;
    const std::unique_ptr<QThread> Collega(QThread::create([&] {
        QThread::msleep(FineMs);
        QFile::remove(Giornale);
    }));
    Collega->start();
    const int Rifiuto = NumeroErrore([&] { (void)Valore(File); });
    Collega->wait();
    QCOMPARE(Rifiuto, 0);
    QCOMPARE(Valore(File), 1);
}

void TestDatabaseOstile::ilLogDiUnAltro()
{
    ConLog(Cartella + u"altra.mdb"_s);
    ScriviFile(File + u"-wal"_s, LeggiFile(Cartella + u"altra.mdb-wal"_s));
    QVERIFY(LeggiFile(File + u"-wal"_s).size() > 4096);
    QCOMPARE(Valore(File), 1);
    OpenDatabase(File).Execute(u"UPDATE T SET a=a+10"_s);
    QCOMPARE(Valore(File), 11);
}

void TestDatabaseOstile::ilLogProprioSiLegge()
{
    const QString Copia = Cartella + u"altra.mdb"_s;
    ConLog(Copia);
    QCOMPARE(Valore(Copia), 2);
    OpenDatabase(Copia).Execute(u"UPDATE T SET a=a+10"_s);
    QCOMPARE(Valore(Copia), 12);
    QVERIFY2(!EsisteFile(Copia + u"-wal"_s), "back to a journal of its own");
}

void TestDatabaseOstile::inLetturaNonSiLasciaNulla()
{
    const QString Copia = NuovaCartella() + u"altra.mdb"_s;
    ScriviFile(Copia, LeggiFile(File));
    {
        Connessione Aperta(Copia, Connessione::Modo::Scrittura);
        Aperta.Esegui(u"PRAGMA journal_mode=WAL"_s);
    }
    QVERIFY(LeggiFile(Copia)[18] == 2);
    ImpostaSolaLettura(Copia, true);
    QCOMPARE(Valore(Copia), 1);
    QCOMPARE(ContenutoDi(CartellaFile(Copia)), QStringList{u"altra.mdb"_s});
}

void TestDatabaseOstile::interrottoInSolaLettura()
{
    // Half of a large write is on the disk, and the attribute has come back.
    const QString Copia = NuovaCartella() + u"altra.mdb"_s;
    {
        Connessione Aperta(File, Connessione::Modo::Scrittura);
        Aperta.Esegui(u"PRAGMA cache_size=1"_s);
        Aperta.Esegui(u"CREATE TABLE U (a TEXT)"_s);
        Aperta.Esegui(
            u"INSERT INTO U WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<400) "
            u"SELECT 'prima' || hex(zeroblob(400)) FROM n"_s);
        Aperta.Esegui(u"BEGIN"_s);
        Aperta.Esegui(u"UPDATE U SET a='dopo' || hex(zeroblob(400))"_s);
        Aperta.Esegui(u"UPDATE T SET a=2"_s);
        ScriviFile(Copia, LeggiFile(File));
        ScriviFile(Copia + u"-journal"_s, LeggiFile(File + u"-journal"_s));
        Aperta.Annulla();
    }
    QVERIFY2(LeggiFile(Copia).contains("dopo"), "the write had reached the file");
    ImpostaSolaLettura(Copia, true);
    QCOMPARE(Valore(Copia), 1);
    QVERIFY(!LeggiFile(Copia).contains("dopo00"));
    QVERIFY(SolaLettura(Copia));
    QCOMPARE(ContenutoDi(CartellaFile(Copia)), QStringList{u"altra.mdb"_s});
}

void TestDatabaseOstile::privatoDalPrimoByte()
{
    const auto Modo = [](const QString& Di) {
        struct stat Suo = {};
        return ::stat(QFile::encodeName(Di).constData(), &Suo) == 0 ? int(Suo.st_mode & 0777) : 0;
    };
    const mode_t Prima = ::umask(0);
    const QString Nuovo = Cartella + u"nuovo.mdb"_s;
    const Database Db = CreaDatabasePrivato(Nuovo);
    const int DelFile = Modo(Nuovo);
    const Transazione Aperta(Db);
    Db.Execute(u"CREATE TABLE T (a INTEGER)"_s);
    const int DelGiornale = Modo(Nuovo + u"-journal"_s);
    ::umask(Prima);
    QCOMPARE(DelFile, 0600);
    QCOMPARE(DelGiornale, 0600);
    QCOMPARE(NumeroErrore([&] { (void)CreaDatabasePrivato(Nuovo); }), 3204);
}

/// A cell that would fill the memory is refused.
void TestDatabaseOstile::unaCellaHaUnLimite()
{
    const QString Grande = Cartella + u"cella.mdb"_s;
    {
        // As another program makes it, which has another limit.
        sqlite3* Altro = nullptr;
        QCOMPARE(sqlite3_open(QFile::encodeName(Grande).constData(), &Altro), SQLITE_OK);
        QCOMPARE(sqlite3_exec(Altro,
                              "CREATE TABLE T (b TEXT);"
                              "INSERT INTO T VALUES (hex(zeroblob(1000000))), (hex(zeroblob(9000000)))",
                              nullptr, nullptr, nullptr),
                 SQLITE_OK);
        sqlite3_close(Altro);
    }
    Recordset Righe = OpenDatabase(Grande, true).OpenRecordset(u"T"_s);
    QCOMPARE(Righe.RecordCount(), 2);
    QCOMPARE(Righe.Value(u"b"_s).toString().size(), 2000000);
    Righe.MoveNext();
    QCOMPARE(NumeroErrore([&] { (void)Righe.Value(u"b"_s); }), 3047);
}

void TestDatabaseOstile::leAnnotazioniDiUnAltro_data()
{
    QTest::addColumn<QString>("Colonne");
    QTest::addColumn<QString>("Riga");
    QTest::addColumn<bool>("SiLeggono");
    QTest::addColumn<bool>("SiScrivono");
    const QString Testi = u"Nome TEXT PRIMARY KEY, Valore TEXT"_s;
    const QString Due = u"INSERT INTO \"_Calcanova\" VALUES ('a','b')"_s;
    QTest::newRow("proprie") << Testi << Due << true << true;
    QTest::newRow("con altro accanto")
        << Testi + u", Quando TEXT"_s << u"INSERT INTO \"_Calcanova\" VALUES ('a','b','c')"_s << true
        << false;
    QTest::newRow("altri nomi") << u"Chiave TEXT, Dato TEXT"_s << Due << false << false;
    // The engine would make sixteen millions of letters for each row.
    QTest::newRow("calcolate") << u"Nome TEXT, Valore TEXT GENERATED ALWAYS AS (hex(zeroblob(8000000)))"_s
                               << u"INSERT INTO \"_Calcanova\" VALUES ('a')"_s << false << false;
    QTest::newRow("calcolate e tenute")
        << u"Nome TEXT, Valore TEXT GENERATED ALWAYS AS (Nome || 'b') STORED"_s
        << u"INSERT INTO \"_Calcanova\" VALUES ('a')"_s << false << false;
}

void TestDatabaseOstile::leAnnotazioniDiUnAltro()
{
    QFETCH(QString, Colonne);
    QFETCH(QString, Riga);
    QFETCH(bool, SiLeggono);
    QFETCH(bool, SiScrivono);
    const Database Db = OpenDatabase(File);
    Db.Execute(u"CREATE TABLE \"_Calcanova\" (%1)"_s.arg(Colonne));
    Db.Execute(Riga);
    QCOMPARE(Db.Annotazioni().value(u"a"_s), SiLeggono ? u"b"_s : QString());
    const auto Ritocca = [&] { Db.RitoccaAnnotazioni({u"a"_s}, {{u"a"_s, u"nuovo"_s}}); };
    if (SiScrivono) {
        Ritocca();
        QCOMPARE(Db.Annotazioni().value(u"a"_s), u"nuovo"_s);
        return;
    }
    const QByteArray Prima = LeggiFile(File);
    QCOMPARE(NumeroErrore(Ritocca), 1000);
    QCOMPARE(NumeroErrore([&] { Db.Annota({{u"a"_s, u"nuovo"_s}}); }), 1000);
    QCOMPARE(LeggiFile(File), Prima);
}

/// A column added with a value of its own gives it to every row that stands there: a small file holds much.
void TestDatabaseOstile::troppeAnnotazioni()
{
    const Database Db = OpenDatabase(File);
    Db.Execute(u"CREATE TABLE \"_Calcanova\" (Nome TEXT PRIMARY KEY)"_s);
    Db.Execute(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<100) "
               "INSERT INTO \"_Calcanova\" SELECT i FROM n"_s);
    Db.Execute(
        u"ALTER TABLE \"_Calcanova\" ADD COLUMN Valore TEXT DEFAULT '%1'"_s.arg(QString(900'000, u'x')));
    QCOMPARE(NumeroErrore([&] { (void)Db.Annotazioni(); }), 3047);
    Db.Execute(u"DELETE FROM \"_Calcanova\" WHERE Nome<>'7'"_s);
    QCOMPARE(Db.Annotazioni().value(u"7"_s).size(), 900'000);
}

void TestDatabaseOstile::siRitoccaIlProprio()
{
    const Database Db = OpenDatabase(File);
    const auto Quante = [&] {
        return Db.OpenRecordset(u"SELECT count(*) AS n FROM \"_Calcanova\""_s).Value(u"n"_s).toInt();
    };
    Db.RitoccaAnnotazioni({u"a"_s, u"b"_s}, {{u"a"_s, u"1"_s}});
    QCOMPARE(Db.Annotazioni(), (QMap<QString, QString>{{u"a"_s, u"1"_s}}));
    // More of them than are ever read: what is not read stays.
    Db.Execute(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<1503) "
               "INSERT INTO \"_Calcanova\" SELECT 'x' || i, i FROM n"_s);
    Db.RitoccaAnnotazioni({u"a"_s, u"b"_s}, {{u"b"_s, u"2"_s}});
    QCOMPARE(Quante(), 1504);
    QVERIFY(!Db.Annotazioni().contains(u"a"_s));
    QCOMPARE(Db.Annotazioni().value(u"b"_s), u"2"_s);
    const Database Lettura = OpenDatabase(File, true);
    QCOMPARE(NumeroErrore([&] { Lettura.RitoccaAnnotazioni({u"b"_s}, {}); }), 3027);
}

#include "TestDatabaseOstile.moc"
