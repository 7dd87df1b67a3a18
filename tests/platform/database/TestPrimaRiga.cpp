#include "platform/database/connessione.h"
#include "platform/database/database.h"
#include "platform/database/primariga.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <optional>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// The look at one row of a file that a list takes.
class TestPrimaRiga : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void leCelleSonoTesto();
    void laTabellaVuotaNonHaRiga();
    void ilTestoLungoSiTaglia();
    void quelCheNonSiLegge_data();
    void quelCheNonSiLegge();
    void siApreQuelCheSiElenca_data();
    void siApreQuelCheSiElenca();
    void chiScriveNonSiAspetta();
    void laScritturaInterrottaRestaComE();
    void ilLogDiUnAltroProgramma();
    void ilFileRestaComE();
    void ilBloccoAltruiNonCade();
    void chiApreNonTogliIlBlocco();
    void ilLavoroHaUnLimite();
    void nomiDiOgniScrittura_data();
    void nomiDiOgniScrittura();

private:
    static std::optional<QStringList> Leggi(const QString& File)
    {
        return LeggiPrimaRiga(File, u"Param"_s, {u"Chiave"_s, u"Nome"_s}, 255);
    }
    static void Crea(const QString& Percorso, const QVariantList& Valori)
    {
        const Database Db = CreateDatabase(Percorso);
        Db.Execute(u"CREATE TABLE Param (Chiave LONG, Nome VARCHAR(255))"_s);
        if (!Valori.isEmpty())
            Db.Execute(u"INSERT INTO Param VALUES (?,?)"_s, Valori);
    }

    QString Cartella;
    QString File;
};
PROVA(TestPrimaRiga);

void TestPrimaRiga::init()
{
    Cartella = NuovaCartella();
    File = Cartella + u"uno.mdb"_s;
}

void TestPrimaRiga::leCelleSonoTesto()
{
    Crea(File, {7, u"Rossi Mario"_s});
    OpenDatabase(File).Execute(u"INSERT INTO Param VALUES (8,'secondo')"_s);
    QCOMPARE(Leggi(File), (QStringList{u"7"_s, u"Rossi Mario"_s}));

    const QString Altro = Cartella + u"due.mdb"_s;
    Crea(Altro, {QVariant(), QVariant()});
    QCOMPARE(Leggi(Altro), (QStringList{QString(), QString()}));
}

void TestPrimaRiga::laTabellaVuotaNonHaRiga()
{
    Crea(File, {});
    QCOMPARE(Leggi(File), std::nullopt);
}

void TestPrimaRiga::ilTestoLungoSiTaglia()
{
    Crea(File, {1, QString(100'000, u'è')});
    QCOMPARE(Leggi(File).value().at(1), QString(255, u'è'));
}

void TestPrimaRiga::quelCheNonSiLegge_data()
{
    QTest::addColumn<QString>("Quale");
    QTest::addColumn<int>("Numero");

    QTest::newRow("not there") << u"assente"_s << 53;
    QTest::newRow("a folder") << u"cartella"_s << 75;
    QTest::newRow("nobody may read it") << u"vietato"_s << 75;
    QTest::newRow("empty") << u"vuoto"_s << 3343;
    QTest::newRow("shorter than a header") << u"corto"_s << 3343;
    QTest::newRow("another kind of file") << u"estraneo"_s << 3343;
    QTest::newRow("two gigabytes of another kind, no room on the disk") << u"enorme"_s << 3343;
    QTest::newRow("cut by half") << u"tagliato"_s << 3343;
    QTest::newRow("a header and rubbish behind it") << u"guasto"_s << 3343;
    QTest::newRow("another table") << u"tabella"_s << 3078;
    QTest::newRow("a column less") << u"colonna"_s << 3061;
    QTest::newRow("a view in the place of the table") << u"vista"_s << 3078;
}

void TestPrimaRiga::quelCheNonSiLegge()
{
    QFETCH(QString, Quale);
    if (Quale == u"cartella") {
        QVERIFY(QDir().mkpath(File));
    } else if (Quale == u"vuoto") {
        ScriviFile(File, {});
    } else if (Quale == u"corto") {
        ScriviFile(File, QByteArray("SQLite format 3\0", 16));
    } else if (Quale == u"estraneo") {
        ScriviFile(File, QByteArray(5000, 'x'));
    } else if (Quale == u"enorme") {
        QFile Vasto(File);
        QVERIFY(Vasto.open(QIODevice::WriteOnly) && Vasto.resize(qint64(2) << 30));
    } else if (Quale == u"tabella") {
        CreateDatabase(File).Execute(u"CREATE TABLE Altra (Chiave LONG)"_s);
    } else if (Quale == u"colonna") {
        CreateDatabase(File).Execute(u"CREATE TABLE Param (Chiave LONG)"_s);
    } else if (Quale == u"vista") {
        const Database Db = CreateDatabase(File);
        Db.Execute(u"CREATE TABLE Altra (Chiave LONG, Nome TEXT)"_s);
        Db.Execute(u"CREATE VIEW Param AS SELECT * FROM Altra"_s);
    } else if (Quale != u"assente") {
        Crea(File, {1, QString(20'000, u'x')});
    }
    if (Quale == u"tagliato") {
        QFile Meta(File);
        QVERIFY(Meta.resize(Meta.size() / 2));
    } else if (Quale == u"guasto") {
        QFile Rotto(File);
        const qint64 Lungo = Rotto.size();
        QVERIFY(Rotto.open(QIODevice::ReadWrite) && Rotto.seek(100));
        Rotto.write(QByteArray(Lungo - 100, '\xff'));
    } else if (Quale == u"vietato") {
        QVERIFY(QFile::setPermissions(File, {}));
    }
    QTEST(NumeroErrore([&] { (void)Leggi(File); }), "Numero");
}

void TestPrimaRiga::siApreQuelCheSiElenca_data()
{
    QTest::addColumn<QFile::Permissions>("Suoi");
    QTest::newRow("the owner reads") << QFile::Permissions(QFile::ReadOwner);
    QTest::newRow("the group reads") << QFile::Permissions(QFile::ReadGroup);
    QTest::newRow("the others read") << QFile::Permissions(QFile::ReadOther);
    QTest::newRow("nobody reads") << QFile::Permissions(QFile::WriteOwner);
}

/// A colleague's note, which the group or everybody may read, is not refused behind the list that has it.
void TestPrimaRiga::siApreQuelCheSiElenca()
{
    QFETCH(QFile::Permissions, Suoi);
    Crea(File, {1, u"Rossi"_s});
    QVERIFY(QFile::setPermissions(File, Suoi));
    const int Elencata = NumeroErrore([&] { (void)Leggi(File); });
    QCOMPARE(NumeroErrore([&] { (void)OpenDatabase(File, true); }), Elencata);
    if (!(Suoi & (QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther)))
        QCOMPARE(Elencata, 75);
    else if (::geteuid() == 0 || Suoi & QFile::ReadOwner)
        QCOMPARE(Elencata, 0);
}

void TestPrimaRiga::chiScriveNonSiAspetta()
{
    Crea(File, {1, u"Rossi"_s});
    const Database Altro = OpenDatabase(File);
    Altro.Execute(u"PRAGMA locking_mode=EXCLUSIVE"_s);
    Altro.Execute(u"UPDATE Param SET Nome='Bianchi'"_s);
    QElapsedTimer Orologio;
    Orologio.start();
    QCOMPARE(NumeroErrore([&] { (void)Leggi(File); }), 3260);
    QVERIFY2(Orologio.elapsed() < 2900, "a database would wait three seconds");
}

/// A journal that was left by a crash is mended by whoever opens the note, not by whoever lists it.
void TestPrimaRiga::laScritturaInterrottaRestaComE()
{
    const QString Copia = Cartella + u"interrotta.mdb"_s;
    Crea(File, {1, u"Rossi"_s});
    {
        const Database Db = OpenDatabase(File);
        const Transazione Aperta(Db);
        Db.Execute(u"PRAGMA cache_size=1"_s);
        for (int i = 0; i < 200; ++i)
            Db.Execute(u"INSERT INTO Param VALUES (?,?)"_s, {i, QString(2000, u'x')});
        QVERIFY(QFile::copy(File, Copia));
        QVERIFY(QFile::copy(File + u"-journal"_s, Copia + u"-journal"_s));
    }
    const QByteArray Prima = LeggiFile(Copia);
    const QByteArray Giornale = LeggiFile(Copia + u"-journal"_s);
    QVERIFY(!Giornale.isEmpty());
    QCOMPARE(NumeroErrore([&] { (void)Leggi(Copia); }), 3260);
    QCOMPARE(LeggiFile(Copia), Prima);
    QCOMPARE(LeggiFile(Copia + u"-journal"_s), Giornale);
    QVERIFY(OpenDatabase(Copia).Aperto());
    (void)OpenDatabase(Copia).Tabelle();
    QCOMPARE(Leggi(Copia).value().at(1), u"Rossi"_s);
}

void TestPrimaRiga::ilLogDiUnAltroProgramma()
{
    Crea(File, {1, u"Rossi"_s});
    QByteArray Byte = LeggiFile(File);
    Byte[18] = Byte[19] = 2;
    ScriviFile(File, Byte);
    QCOMPARE(Leggi(File).value().at(1), u"Rossi"_s);
    QCOMPARE(QDir(Cartella).entryList(QDir::Files | QDir::Hidden), QStringList{u"uno.mdb"_s});
    ScriviFile(File + u"-wal"_s, "pending");
    QCOMPARE(NumeroErrore([&] { (void)Leggi(File); }), 3260);
}

void TestPrimaRiga::ilFileRestaComE()
{
    Crea(File, {1, u"Rossi"_s});
    ImpostaSolaLettura(File, true);
    guasti::SupportoBloccato = Cartella;
    const QDateTime Prima = QFileInfo(File).lastModified();
    const QByteArray Byte = LeggiFile(File);
    const auto Letta = Leggi(File);
    guasti::SupportoBloccato.clear();
    QCOMPARE(Letta.value().at(1), u"Rossi"_s);
    QVERIFY(SolaLettura(File));
    QCOMPARE(QFileInfo(File).lastModified(), Prima);
    QCOMPARE(LeggiFile(File), Byte);
    QCOMPARE(FileAperti(File), 0);
    QCOMPARE(QDir(Cartella).entryList(QDir::Files | QDir::Hidden), QStringList{u"uno.mdb"_s});
}

/// Whether another process finds the file locked: one's own locks never hinder oneself.
bool BloccatoPerAltri(const QString& File)
{
    const pid_t Figlio = ::fork();
    if (Figlio == 0) {
        struct flock Blocco = {};
        Blocco.l_type = F_WRLCK;
        Blocco.l_whence = SEEK_SET;
        const int Aperto = ::open(QFile::encodeName(File).constData(), O_RDWR);
        ::_exit(::fcntl(Aperto, F_GETLK, &Blocco) == 0 && Blocco.l_type != F_UNLCK ? 1 : 0);
    }
    int Esito = 0;
    return ::waitpid(Figlio, &Esito, 0) == Figlio && WIFEXITED(Esito) && WEXITSTATUS(Esito) == 1;
}

/// To open and close a file would let go of the locks that this process holds on it.
void TestPrimaRiga::ilBloccoAltruiNonCade()
{
    Crea(File, {1, u"Rossi"_s});
    const Database Scrive = OpenDatabase(File);
    const Transazione Aperta(Scrive);
    Scrive.Execute(u"UPDATE Param SET Nome='Bianchi'"_s);
    QCOMPARE(Leggi(File).value().at(1), u"Rossi"_s);
    QVERIFY2(BloccatoPerAltri(File), "this process still holds its lock");
}

/// A thread of the finder reads the file while the windows open it: its lock stays.
void TestPrimaRiga::chiApreNonTogliIlBlocco()
{
    Crea(File, {1, u"Rossi"_s});
    const Connessione Lettrice(File, Connessione::Modo::Elenco);
    Istruzione Riga(Lettrice, u"SELECT Nome FROM Param"_s);
    QVERIFY(Riga.Avanza());
    QVERIFY(BloccatoPerAltri(File));
    QCOMPARE(OpenDatabase(File).OpenRecordset(u"Param"_s).RecordCount(), 1);
    QVERIFY2(BloccatoPerAltri(File), "the thread still holds its lock");
}

void TestPrimaRiga::ilLavoroHaUnLimite()
{
    const Database Db = CreateDatabase(File);
    Db.Execute(u"CREATE TABLE Param (Chiave LONG)"_s);
    Db.Execute(u"INSERT INTO Param (Chiave) VALUES (1)"_s);
    Db.Execute(u"ALTER TABLE Param ADD COLUMN Nome TEXT AS (hex(zeroblob(9000000)))"_s);
    QCOMPARE(NumeroErrore([&] { (void)Leggi(File); }), 3047);
}

void TestPrimaRiga::nomiDiOgniScrittura_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::newRow("blanks and signs of an address") << u"a b?c#d%20&e.mdb"_s;
    QTest::newRow("Cyrillic") << u"Дело № 7.mdb"_s;
    QTest::newRow("Arabic") << u"قضية.mdb"_s;
    QTest::newRow("beyond the basic plane") << u"\U0001F4DC.mdb"_s;
    QTest::newRow("240 bytes") << QString(118, u'è') + u".mdb"_s;
}

void TestPrimaRiga::nomiDiOgniScrittura()
{
    QFETCH(QString, Nome);
    Crea(Cartella + Nome, {1, Nome});
    QCOMPARE(Leggi(Cartella + Nome).value().at(1), Nome);
    QByteArray Byte = LeggiFile(Cartella + Nome);
    Byte[18] = Byte[19] = 2;
    ScriviFile(Cartella + Nome, Byte);
    QCOMPARE(Leggi(Cartella + Nome).value().at(1), Nome);
}

#include "TestPrimaRiga.moc"
