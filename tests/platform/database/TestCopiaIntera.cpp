// Sources of a copy that stand where the system knows no locks, or hold rows that break their own rules.
#include "supporto/prova.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/copiaintera.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "supporto/guasti.h"

#include <QScopedValueRollback>

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int Righe = 500;

QString SenzaLocks;  // files of this folder have no locks
int Codice = 0;
sqlite3_syscall_ptr Vera = nullptr;

int SulPosto(int Descrittore, int Comando, ...)
{
    va_list Altri;
    va_start(Altri, Comando);
    void* const Dato = va_arg(Altri, void*);
    va_end(Altri);
    std::array<char, 4096> Dove{};
    const bool Blocco = Comando == F_SETLK || Comando == F_SETLKW || Comando == F_GETLK;
    if (Blocco &&
        ::readlink(qPrintable(u"/proc/self/fd/%1"_s.arg(Descrittore)), Dove.data(), Dove.size() - 1) > 0 &&
        QFile::decodeName(Dove.data()).startsWith(SenzaLocks)) {
        errno = Codice;
        return -1;
    }
    return ::fcntl(Descrittore, Comando, Dato);
}

/// A share that knows no locks, while it lives.
class SenzaBlocchi
{
public:
    SenzaBlocchi(const QString& Cartella, int DiCodice)
    {
        SenzaLocks = Cartella;
        Codice = DiCodice;
        Vera = Strato()->xGetSystemCall(Strato(), "fcntl");
        Strato()->xSetSystemCall(Strato(), "fcntl", reinterpret_cast<sqlite3_syscall_ptr>(SulPosto));
    }
    ~SenzaBlocchi() { Strato()->xSetSystemCall(Strato(), "fcntl", Vera); }
    SenzaBlocchi(const SenzaBlocchi&) = delete;
    SenzaBlocchi& operator=(const SenzaBlocchi&) = delete;

private:
    static sqlite3_vfs* Strato() { return sqlite3_vfs_find("unix"); }
};

int Contate(const QString& File)
{
    return OpenDatabase(File, true).OpenRecordset(u"SELECT a FROM t WHERE a LIKE 'riga %'"_s).RecordCount();
}

}  // namespace

class TestCopiaIntera : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void doveNonCiSonoBlocchi_data();
    void doveNonCiSonoBlocchi();
    void interrottoDoveNonCiSonoBlocchi();
    void colLogDoveNonCiSonoBlocchi();
    void bloccatoDaUnAltro();
    void leRegoleNonRispettate_data();
    void leRegoleNonRispettate();
    void leRegoleNonCopronoUnDanno();

private:
    void Crea(const QString& Tabella) const;

    QString Cartella;
    QString File;
    QString Copia;
};
PROVA(TestCopiaIntera);

void TestCopiaIntera::init()
{
    Cartella = NuovaCartella();
    File = Cartella + u"altri.mdb"_s;
    Copia = NuovaCartella() + u"copia.mdb"_s;
}

void TestCopiaIntera::Crea(const QString& Tabella) const
{
    (void)CreateDatabase(File);
    Connessione Conn(File, Connessione::Modo::Scrittura);
    Conn.Esegui(u"CREATE TABLE t (a TEXT)"_s);
    Conn.Esegui(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) INSERT INTO t "
                "SELECT 'riga ' || i FROM n"_s.arg(Righe));
    if (Tabella.isEmpty())
        return;
    Conn.Esegui(u"PRAGMA ignore_check_constraints=ON"_s);
    Conn.Esegui(Tabella);
    Conn.Esegui(u"INSERT INTO r VALUES (NULL, -1), (NULL, -2)"_s);
}

void TestCopiaIntera::doveNonCiSonoBlocchi_data()
{
    QTest::addColumn<int>("Codice");
    QTest::newRow("none to be had") << ENOLCK;
    QTest::newRow("not known") << EOPNOTSUPP;
    QTest::newRow("not built in") << ENOSYS;
}

void TestCopiaIntera::doveNonCiSonoBlocchi()
{
    QFETCH(int, Codice);
    Crea({});
    const QScopedValueRollback Poco(attese::BlocchiMs, 50);
    const QByteArray Prima = LeggiFile(File);
    {
        const SenzaBlocchi Condivisa(Cartella, Codice);
        QVERIFY(!LeggibileDoveSta(File));
        QCOMPARE(DescrizioneErroreDi([&] { (void)CopiaIntera(File, Copia); }), QString());
        // What changes all the time is not read without a lock.
        const QString Altra = Copia + u".mdb"_s;
        int Volta = 0;
        QCOMPARE(NumeroErrore([&] {
                     (void)CopiaIntera(File, Altra, [&](qint64) {
                         ImpostaDataFile(File, QDateTime::currentDateTime().addSecs(++Volta * 60));
                         return true;
                     });
                 }),
                 errori::DatiBloccati);
        QVERIFY(!EsisteFile(Altra));
    }
    QCOMPARE(Contate(Copia), Righe);
    QCOMPARE(LeggiFile(File), Prima);
    QVERIFY(LeggibileDoveSta(File));
}

void TestCopiaIntera::interrottoDoveNonCiSonoBlocchi()
{
    Crea({});
    const QString Vero = Cartella + u"vero.mdb"_s;
    QVERIFY(QFile::rename(File, Vero));
    {
        Connessione Conn(Vero, Connessione::Modo::Scrittura);
        Conn.Esegui(u"PRAGMA cache_size=2"_s);
        Conn.Esegui(u"BEGIN IMMEDIATE"_s);
        Conn.Esegui(u"UPDATE t SET a='altrove ' || a || hex(zeroblob(200))"_s);
        QVERIFY(QFile::copy(Vero, File));
        QVERIFY(QFile::copy(Vero + u"-journal"_s, File + u"-journal"_s));
        QVERIFY(QFileInfo(File + u"-journal"_s).size() > 0);
        Conn.Esegui(u"ROLLBACK"_s);
    }
    const QByteArray Prima = LeggiFile(File) + LeggiFile(File + u"-journal"_s);
    const QScopedValueRollback Poco(attese::BlocchiMs, 50);
    {
        const SenzaBlocchi Condivisa(Cartella, ENOLCK);
        QCOMPARE(DescrizioneErroreDi([&] { (void)CopiaIntera(File, Copia); }), QString());
    }
    QCOMPARE(Contate(Copia), Righe);
    QCOMPARE(LeggiFile(File) + LeggiFile(File + u"-journal"_s), Prima);
}

/// Another program's log, and its index beside it, that nobody has open.
void TestCopiaIntera::colLogDoveNonCiSonoBlocchi()
{
    Crea({});
    const QString Vero = Cartella + u"vero.mdb"_s;
    QVERIFY(QFile::rename(File, Vero));
    const QStringList Code{u""_s, u"-wal"_s, u"-shm"_s};
    {
        Connessione Conn(Vero, Connessione::Modo::Scrittura);
        Conn.Esegui(u"PRAGMA journal_mode=WAL"_s);
        Conn.Esegui(u"INSERT INTO t VALUES ('riga ultima')"_s);
        for (const QString& Coda : Code)
            QVERIFY(QFile::copy(Vero + Coda, File + Coda));
        QVERIFY(QFileInfo(File + u"-wal"_s).size() > 0);
    }
    const QByteArray Prima = LeggiFile(File) + LeggiFile(File + u"-wal"_s);
    const QScopedValueRollback Poco(attese::BlocchiMs, 50);
    {
        const SenzaBlocchi Condivisa(Cartella, ENOLCK);
        QCOMPARE(DescrizioneErroreDi([&] { (void)CopiaIntera(File, Copia); }), QString());
    }
    QCOMPARE(Contate(Copia), Righe + 1);
    QCOMPARE(LeggiFile(File) + LeggiFile(File + u"-wal"_s), Prima);
}

/// Where there are locks they count.
void TestCopiaIntera::bloccatoDaUnAltro()
{
    Crea({});
    Connessione Altro(File, Connessione::Modo::Scrittura);
    Altro.Esegui(u"BEGIN EXCLUSIVE"_s);
    const QScopedValueRollback Poco(attese::BlocchiMs, 50);
    QCOMPARE(NumeroErrore([&] { (void)CopiaIntera(File, Copia); }), errori::DatiBloccati);
    QVERIFY(!EsisteFile(Copia));
}

void TestCopiaIntera::leRegoleNonRispettate_data()
{
    QTest::addColumn<QString>("Tabella");
    QTest::addColumn<QByteArray>("Scritta");
    QTest::addColumn<QByteArray>("Poi");
    QTest::newRow("CHECK") << u"CREATE TABLE r (a TEXT, b INTEGER CHECK (b > 0))"_s << QByteArray()
                           << QByteArray();
    QTest::newRow("NOT NULL") << u"CREATE TABLE r (a TEXT         , b INTEGER)"_s
                              << QByteArray("a TEXT         ,") << QByteArray("a TEXT NOT NULL,");
    QTest::newRow("a number in a column of texts")
        << u"CREATE TABLE r (a TEXT, b BLOB)"_s << QByteArray("b BLOB)") << QByteArray("b TEXT)");
    QTest::newRow("a text in a column of numbers")
        << u"CREATE TABLE r (a TEXT, b TEXT   )"_s << QByteArray("b TEXT   )") << QByteArray("b NUMERIC)");
    QTest::newRow("a strict table") << u"CREATE TABLE r (a TEXT, b ANY ) STRICT"_s << QByteArray("b ANY )")
                                    << QByteArray("b TEXT)");
}

/// Another program's row that keeps to no rule of its table is a row all the same.
void TestCopiaIntera::leRegoleNonRispettate()
{
    QFETCH(QString, Tabella);
    QFETCH(QByteArray, Scritta);
    QFETCH(QByteArray, Poi);
    Crea(Tabella);
    if (!Scritta.isEmpty()) {
        const QByteArray Prima = LeggiFile(File);
        QVERIFY(Prima.count(Scritta) == 1 && Scritta.size() == Poi.size());
        ScriviFile(File, QByteArray(Prima).replace(Scritta, Poi));
    }
    QCOMPARE(DescrizioneErroreDi([&] { (void)CopiaIntera(File, Copia); }), QString());
    QCOMPARE(Contate(Copia), Righe);
    QCOMPARE(OpenDatabase(Copia, true).OpenRecordset(u"SELECT b FROM r"_s).RecordCount(), 2);
}

/// Behind such a row a damage shows as before.
void TestCopiaIntera::leRegoleNonCopronoUnDanno()
{
    Crea(u"CREATE TABLE r (a TEXT, b INTEGER CHECK (b > 0))"_s);
    Connessione(File, Connessione::Modo::Scrittura).Esegui(u"INSERT INTO r VALUES ('rovinata', 5)"_s);
    // A text that says that it is longer than its row.
    const QByteArray Prima = LeggiFile(File);
    QVERIFY(Prima.count("\x03\x1d\x01rovinata") == 1);
    ScriviFile(File, QByteArray(Prima).replace("\x03\x1d\x01rovinata", "\x03\x7f\x01rovinata"));
    QCOMPARE(NumeroErrore([&] { (void)CopiaIntera(File, Copia); }), errori::FormatoDatabase);
    QVERIFY(!EsisteFile(Copia));
}

#include "TestCopiaIntera.moc"
