// A row read from the pages of a file is the one that the engine gives, and where it might not be, the engine
// is asked: each file is read both ways.
#include "platform/database/connessione.h"
#include "platform/database/database.h"
#include "platform/database/paginenote.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"
#include "supporto/prova.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QScopedValueRollback>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList Volute{u"Chiave"_s, u"Nome"_s, u"Oggetto"_s};
const QStringList Nomi{u"Mezzo"_s, u"Stato"_s, u"txtAltro"_s};
constexpr int MassimoCaratteri = 255;

/// What is read of a file, or why not.
struct Letta
{
    std::optional<QStringList> Celle;
    QMap<QString, QString> Annotate;
    int Guasto = 0;

    friend bool operator==(const Letta&, const Letta&) = default;
};

Letta Leggi(const QString& File, bool SoloMotore)
{
    const QScopedValueRollback Come(guasti::SoloMotore, SoloMotore);
    AnnotazioniChieste Anche{Nomi, {}};
    Letta Risultato;
    Risultato.Guasto = NumeroErrore(
        [&] { Risultato.Celle = LeggiPrimaRiga(File, u"Param"_s, Volute, MassimoCaratteri, &Anche); });
    if (Risultato.Guasto == 0)
        Risultato.Annotate = Anche.Trovate;
    return Risultato;
}

/// True where the pages alone answer.
bool Diretta(const QString& File)
{
    AnnotazioniChieste Anche{Nomi, {}};
    return RigaDallePagine(File, {u"Param"_s, Volute, MassimoCaratteri, &Anche}).has_value();
}

QByteArray Mostrata(const Letta& Riga)
{
    constexpr qsizetype Poche = 12;
    QByteArray Detta = QByteArray::number(Riga.Guasto);
    for (const QString& Cella : Riga.Celle.value_or(QStringList()) + Riga.Annotate.values())
        Detta += " | " + Cella.first(std::min(Poche, Cella.size())).toUtf8() + " (" +
                 QByteArray::number(Cella.size()) + ')';
    return Detta;
}

/// Whether another process finds the file locked: one's own locks never hinder oneself.
bool BloccatoAgliAltri(const QString& File)
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

}  // namespace

class TestPagineNote : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void valori_data();
    void valori();
    void righeVere();
    void annotazioni_data();
    void annotazioni();
    void schemi_data();
    void schemi();
    void loSchemaSiImpara();
    void chiScrive();
    void ilBloccoProprioResta();
    void giornaleRimasto();
    void niente();
    void troncati();
    void byteGuasti_data();
    void byteGuasti();

private:
    /// A file like a note: a table with more columns than are wanted, rows, annotations.
    static void Crea(const QString& Percorso, const QVariantList& Valori,
                     const QMap<QString, QString>& Annotate = {{u"Stato"_s, u"Bozza"_s}})
    {
        const Database Db = CreateDatabase(Percorso);
        Db.Execute(u"CREATE TABLE Param (Prima LONG, Chiave LONG, Nome BLOB, Somma DOUBLE, Oggetto "
                   u"LONGTEXT, Coda LONGTEXT)"_s);
        Db.Execute(u"CREATE TABLE Righe (Testo VARCHAR(60))"_s);
        if (!Valori.isEmpty())
            Db.Execute(u"INSERT INTO Param VALUES (?,?,?,?,?,?)"_s, Valori);
        Db.Annota(Annotate);
    }
    static QVariantList Riga(const QVariant& Nome) { return {7, 12, Nome, 1.5, u"causa"_s, u"coda"_s}; }
    void Conosci() const
    {
        Crea(Cartella + u"prima.mdb"_s, Riga(u"Rossi"_s));
        (void)Leggi(Cartella + u"prima.mdb"_s, false);
    }

    QString Cartella;
    QString File;
};
PROVA(TestPagineNote);

void TestPagineNote::init()
{
    Cartella = NuovaCartella();
    File = Cartella + u"uno.mdb"_s;
}

void TestPagineNote::valori_data()
{
    QTest::addColumn<QString>("Espressione");
    QTest::addColumn<bool>("Dirette");
    const auto Caso = [](const char* Nome, const QString& Espressione, bool Dirette = true) {
        QTest::newRow(Nome) << Espressione << Dirette;
    };
    Caso("null", u"NULL"_s);
    Caso("zero and one have no bytes", u"0"_s);
    Caso("one", u"1"_s);
    Caso("one byte", u"-128"_s);
    Caso("two", u"32767"_s);
    Caso("two, below zero", u"-32768"_s);
    Caso("three", u"-8388608"_s);
    Caso("four", u"2147483647"_s);
    Caso("six", u"-140737488355328"_s);
    Caso("eight", u"9223372036854775807"_s);
    Caso("eight, below zero", u"-9223372036854775807-1"_s);
    Caso("a text", u"'Rossi'"_s);
    Caso("an empty text", u"''"_s);
    Caso("a number as text", u"'12'"_s);
    Caso("two lines", u"'Rossi'||char(13,10)||'Mario'"_s);
    Caso("accents to the last character", u"replace(hex(zeroblob(255)),'00','è')"_s);
    Caso("one more is cut", u"replace(hex(zeroblob(256)),'00','è')"_s);
    Caso("beyond the basic plane", u"replace(hex(zeroblob(300)),'00',char(128220))"_s);
    Caso("no letters of UTF-8", u"CAST(X'41FF80C3' AS TEXT)"_s);
    Caso("a long one of such", u"CAST(replace(hex(zeroblob(300)),'00',char(65)) || X'80BFE0' AS TEXT)"_s);
    Caso("a hair below a page", u"replace(hex(zeroblob(4000)),'00','x')"_s);
    Caso("beyond a page", u"replace(hex(zeroblob(9000)),'00','x')"_s, false);
    Caso("a fraction", u"1.25"_s, false);
    Caso("bytes", u"X'0102'"_s, false);
    Caso("a NUL inside", u"'a'||char(0)||'b'"_s, false);
}

void TestPagineNote::valori()
{
    QFETCH(QString, Espressione);
    QFETCH(bool, Dirette);
    Conosci();
    Crea(File, {});
    OpenDatabase(File).Execute(u"INSERT INTO Param VALUES (7,12,%1,1.5,'causa','coda')"_s.arg(Espressione));
    const Letta Motore = Leggi(File, true);
    QCOMPARE(Motore.Guasto, 0);
    QCOMPARE(Motore.Celle->at(2), u"causa"_s);
    const Letta Pagine = Leggi(File, false);
    QVERIFY2(Pagine == Motore, Mostrata(Pagine));
    QCOMPARE(Diretta(File), Dirette);
}

/// Columns in the order that was asked for, the first of several rows, in a table of several pages too.
void TestPagineNote::righeVere()
{
    Conosci();
    Crea(File, Riga(u"Rossi"_s));
    {
        const Database Db = OpenDatabase(File);
        Transazione Insieme(Db);
        for (int i = 0; i < 3000; ++i)
            Db.Execute(u"INSERT INTO Param VALUES (?,?,?,?,?,?)"_s, {i, i, QString(200, u'x'), 0, {}, {}});
        Insieme.Conferma();
    }
    QCOMPARE(Leggi(File, false).Celle, (QStringList{u"12"_s, u"Rossi"_s, u"causa"_s}));
    QVERIFY(Diretta(File));
    OpenDatabase(File).Execute(u"DELETE FROM Param WHERE Prima<2500 OR Nome='Rossi'"_s);
    QVERIFY(Leggi(File, false) == Leggi(File, true));
    // A row of before a column was added has fewer values.
    const QString Vecchia = Cartella + u"vecchia.mdb"_s;
    for (const QString& Nome : {Cartella + u"modello.mdb"_s, Vecchia}) {
        const Database Db = CreateDatabase(Nome);
        Db.Execute(u"CREATE TABLE Param (Chiave LONG, Nome LONGTEXT)"_s);
        Db.Execute(u"INSERT INTO Param VALUES (1,'uno')"_s);
        Db.Execute(u"ALTER TABLE Param ADD COLUMN Oggetto TEXT DEFAULT 'nulla'"_s);
        QCOMPARE(Leggi(Nome, false).Celle, (QStringList{u"1"_s, u"uno"_s, u"nulla"_s}));
    }
}

void TestPagineNote::annotazioni_data()
{
    QTest::addColumn<QStringList>("Sql");
    QTest::addColumn<bool>("Dirette");
    const auto Caso = [](const char* Nome, const QStringList& Sql, bool Dirette = true) {
        QTest::newRow(Nome) << Sql << Dirette;
    };
    const auto Molte = [](const QString& Chi, int Quante, int Lunghe) {
        return u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%2) INSERT INTO "
               u"\"_Calcanova\" "
               u"SELECT '%1'||printf('%05d',i), replace(hex(zeroblob(%3)),'00','v') FROM n"_s.arg(Chi)
                   .arg(Quante)
                   .arg(Lunghe);
    };
    const QString Voluta = u"INSERT INTO \"_Calcanova\" VALUES ('txtAltro','valore')"_s;
    Caso("as it is", {});
    Caso("none", {u"DELETE FROM \"_Calcanova\""_s});
    Caso("another one", {Voluta});
    Caso("Null", {u"INSERT INTO \"_Calcanova\" VALUES ('txtAltro',NULL)"_s});
    Caso("a value that is cut",
         {u"INSERT INTO \"_Calcanova\" VALUES ('txtAltro',replace(hex(zeroblob(700)),'00','è'))"_s}, false);
    Caso("a value that is cut in its page",
         {u"INSERT INTO \"_Calcanova\" VALUES ('txtAltro',replace(hex(zeroblob(450)),'00','è'))"_s});
    Caso("a long value of a name that nobody asks for", {Molte(u"txtAaa"_s, 1, 5000), Voluta}, false);
    Caso("a long one that sorts before all", {Molte(u"Aaa"_s, 1, 5000), Voluta});
    Caso("two pages", {Molte(u"Nnn"_s, 40, 300), Voluta});
    Caso("three levels", {Molte(u"Aaa"_s, 60, 900), Voluta});
    Caso("more pages than a note has", {Molte(u"Aaa"_s, 4000, 300), Voluta}, false);
    Caso("more names before it than are looked at", {Molte(u"Nnn"_s, 250, 5), Voluta});
    Caso("more names that sort before all", {Molte(u"A"_s, 250, 5), Voluta});
    Caso("a table of another kind",
         {u"DROP TABLE \"_Calcanova\""_s, u"CREATE TABLE \"_Calcanova\" (Nome TEXT, Valore TEXT)"_s, Voluta},
         false);
    Caso("a view", {u"DROP TABLE \"_Calcanova\""_s,
                    u"CREATE VIEW \"_Calcanova\" AS SELECT 'Stato' AS Nome, 'x' AS Valore"_s});
    Caso("no table", {u"DROP TABLE \"_Calcanova\""_s});
    Caso("in other letters",
         {u"DROP TABLE \"_Calcanova\""_s,
          u"CREATE TABLE \"_CALCANOVA\" (Nome TEXT PRIMARY KEY, Valore TEXT) WITHOUT ROWID"_s});
    Caso("columns the other way round",
         {u"DROP TABLE \"_Calcanova\""_s,
          u"CREATE TABLE \"_Calcanova\" (Valore TEXT, Nome TEXT PRIMARY KEY) WITHOUT ROWID"_s,
          u"INSERT INTO \"_Calcanova\" (Nome,Valore) VALUES ('Stato','giusto')"_s},
         false);
}

void TestPagineNote::annotazioni()
{
    QFETCH(QStringList, Sql);
    QFETCH(bool, Dirette);
    Crea(File, Riga(u"Rossi"_s));
    {
        const Database Db = OpenDatabase(File);
        for (const QString& Una : Sql)
            Db.Execute(Una);
    }
    const Letta Motore = Leggi(File, true);
    QCOMPARE(Motore.Guasto, 0);
    QVERIFY(Leggi(File, false) == Motore);  // the engine answers, and the schema is learnt
    const Letta Pagine = Leggi(File, false);
    QVERIFY2(Pagine == Motore, Mostrata(Pagine));
    QCOMPARE(Diretta(File), Dirette);
}

void TestPagineNote::schemi_data()
{
    QTest::addColumn<QStringList>("Sql");
    QTest::addColumn<bool>("Dirette");
    const auto Caso = [](const char* Nome, const QStringList& Sql, bool Dirette = false) {
        QTest::newRow(Nome) << Sql << Dirette;
    };
    const QString Riga = u"INSERT INTO Param (Chiave,Nome,Oggetto) VALUES (12,'Rossi','causa')"_s;
    Caso("other letters", {u"CREATE TABLE PARAM (CHIAVE LONG, nome TEXT, oggetto TEXT)"_s, Riga}, true);
    Caso("columns the other way round",
         {u"CREATE TABLE Param (Oggetto TEXT, Nome TEXT, Chiave LONG)"_s, Riga}, true);
    Caso("the key of the row",
         {u"CREATE TABLE Param (Chiave INTEGER PRIMARY KEY, Nome TEXT, Oggetto TEXT)"_s, Riga});
    Caso("no key of the row",
         {u"CREATE TABLE Param (Nome TEXT, Chiave TEXT PRIMARY KEY, Oggetto TEXT) WITHOUT ROWID"_s, Riga});
    Caso("a column that is reckoned",
         {u"CREATE TABLE Param (Chiave LONG, Conto TEXT AS (Chiave||'x'), Nome TEXT, Oggetto TEXT)"_s, Riga});
    Caso("a column of fractions", {u"CREATE TABLE Param (Chiave DOUBLE, Nome TEXT, Oggetto TEXT)"_s, Riga});
    Caso("a column of no kind", {u"CREATE TABLE Param (Chiave LONG, Nome, Oggetto TEXT)"_s, Riga}, true);
    Caso("an index and a trigger",
         {u"CREATE TABLE Param (Chiave LONG, Nome TEXT, Oggetto TEXT)"_s,
          u"CREATE INDEX Ni ON Param (Nome)"_s,
          u"CREATE TRIGGER Ti AFTER INSERT ON Param BEGIN DELETE FROM Param; END"_s, Riga},
         true);
}

void TestPagineNote::schemi()
{
    QFETCH(QStringList, Sql);
    QFETCH(bool, Dirette);
    {
        const Database Db = CreateDatabase(File);
        for (const QString& Una : Sql)
            Db.Execute(Una);
    }
    const Letta Motore = Leggi(File, true);
    QCOMPARE(Motore.Guasto, 0);
    QVERIFY(Motore.Celle);
    QVERIFY(Leggi(File, false) == Motore);
    QVERIFY(Leggi(File, false) == Motore);
    QCOMPARE(Diretta(File), Dirette);
}

/// What another file of the same columns has in another place is not read there; each schema is learnt by
/// itself.
void TestPagineNote::loSchemaSiImpara()
{
    Crea(File, Riga(u"Rossi"_s));
    QVERIFY(!Diretta(Cartella + u"manca.mdb"_s));
    (void)Leggi(File, false);
    QVERIFY(Diretta(File));
    AnnotazioniChieste Anche{Nomi, {}};
    QVERIFY(
        !RigaDallePagine(File, {u"Param"_s, {u"Prima"_s}, MassimoCaratteri, &Anche}));  // another question
    const QString Altra = Cartella + u"altra.mdb"_s;
    {
        const Database Db = CreateDatabase(Altra);
        Db.Execute(u"CREATE TABLE Intrusa (Chiave LONG)"_s);
    }
    {
        const Database Db = OpenDatabase(Altra);
        Db.Execute(u"CREATE TABLE Param (Prima LONG, Chiave LONG, Nome BLOB, Somma DOUBLE, Oggetto LONGTEXT, "
                   u"Coda LONGTEXT)"_s);
        Db.Execute(u"INSERT INTO Param VALUES (1,2,'Verdi',3,'altra','coda')"_s);
    }
    QVERIFY(!Diretta(Altra));
    QCOMPARE(Leggi(Altra, false).Celle->at(1), u"Verdi"_s);
    QVERIFY(Diretta(Altra));
}

void TestPagineNote::chiScrive()
{
    Conosci();
    Crea(File, Riga(u"Rossi"_s));
    const Database Altro = OpenDatabase(File);
    Altro.Execute(u"PRAGMA locking_mode=EXCLUSIVE"_s);
    Altro.Execute(u"UPDATE Param SET Nome='Bianchi'"_s);
    QVERIFY(!Diretta(File));
    QCOMPARE(Leggi(File, false).Guasto, 3260);
}

/// To close a file lets go of the locks that its process holds on it, unless whoever closes it knows of them.
void TestPagineNote::ilBloccoProprioResta()
{
    Conosci();
    Crea(File, Riga(u"Rossi"_s));
    const Database Scrive = OpenDatabase(File);
    Scrive.Execute(u"PRAGMA journal_mode=MEMORY"_s);  // no file beside it, so that the pages answer
    const Transazione Aperta(Scrive);
    Scrive.Execute(u"UPDATE Param SET Nome='Bianchi'"_s);
    QVERIFY(BloccatoAgliAltri(File));
    QVERIFY(Diretta(File));
    QCOMPARE(Leggi(File, false).Celle->at(1), u"Rossi"_s);
    QVERIFY2(BloccatoAgliAltri(File), "this process still holds its lock");
    QCOMPARE(FileAperti(File) > 0, true);
}

/// A journal that was left, empty ones and those of nobody included, is looked at by the engine.
void TestPagineNote::giornaleRimasto()
{
    Conosci();
    Crea(File, Riga(u"Rossi"_s));
    QVERIFY(Diretta(File));
    ScriviFile(File + u"-journal"_s, QByteArray(600, 'x'));
    QVERIFY(!Diretta(File));
    QVERIFY(Leggi(File, false) == Leggi(File, true));
}

void TestPagineNote::niente()
{
    Conosci();
    Crea(File, {});
    QVERIFY(!Diretta(File));
    QCOMPARE(Leggi(File, false).Celle, std::nullopt);
    QCOMPARE(FileAperti(File), 0);
    QVERIFY(!Diretta(Cartella));
    QVERIFY(!Diretta(Cartella + u"manca.mdb"_s));
}

void TestPagineNote::troncati()
{
    Conosci();
    Crea(File, Riga(u"Rossi"_s));
    const QByteArray Byte = LeggiFile(File);
    for (const qsizetype Lungo : {qsizetype(0), qsizetype(50), qsizetype(4095), qsizetype(4096),
                                  Byte.size() / 2, Byte.size() - 4096, Byte.size() - 1}) {
        ScriviFile(File, Byte.first(Lungo));
        QVERIFY(!Diretta(File));
        QVERIFY(Leggi(File, false) == Leggi(File, true));
    }
    ScriviFile(File, Byte + QByteArray(4096, 'x'));
    QVERIFY(Leggi(File, false) == Leggi(File, true));
}

void TestPagineNote::byteGuasti_data()
{
    QTest::addColumn<int>("Da");
    QTest::addColumn<int>("A");
    QTest::newRow("the head of the file") << 0 << 100;
    QTest::newRow("the schema") << 100 << 4096;
    QTest::newRow("the head of any page") << -1 << 60;
    QTest::newRow("anywhere") << 0 << 1'000'000;
}

/// Whatever is damaged, the two ways tell the same: a cell, an error, no note.
void TestPagineNote::byteGuasti()
{
    QFETCH(int, Da);
    QFETCH(int, A);
    constexpr int Pagina = 4096;
    Conosci();
    QMap<QString, QString> Annotate;
    for (int i = 0; i < 60; ++i)
        Annotate[u"Nnn%1"_s.arg(i)] = QString(i * 9, u'v');
    Annotate[u"Stato"_s] = u"Inviata"_s;
    Crea(File, Riga(QString(300, u'è')), Annotate);
    QVERIFY(Diretta(File));
    const QByteArray Buoni = LeggiFile(File);
    QRandomGenerator Sorte(quint32(20261122 + A));
    const int Casi = qEnvironmentVariable("CALCANOVA_CASI", u"600"_s).toInt();
    const QString Guasta = Cartella + u"guasta.mdb"_s;
    int Dirette = 0;
    for (int i = 0; i < Casi; ++i) {
        QByteArray Byte = Buoni;
        for (int Volte = Sorte.bounded(1, 4); Volte > 0; --Volte) {
            const int Pagine = int(Byte.size()) / Pagina;
            const int Dove = Da >= 0 ? Sorte.bounded(Da, std::min(A, int(Byte.size())))
                                     : Sorte.bounded(Pagine) * Pagina + Sorte.bounded(A);
            Byte[Dove] = char(Sorte.bounded(3) == 0 ? Byte[Dove] + 1 : Sorte.bounded(256));
        }
        ScriviFile(Guasta, Byte);
        Dirette += Diretta(Guasta);
        const Letta Motore = Leggi(Guasta, true);
        const Letta Pagine = Leggi(Guasta, false);
        QVERIFY2(Pagine == Motore, "case " + QByteArray::number(i) + ": pages " + Mostrata(Pagine) +
                                       ", engine " + Mostrata(Motore));
    }
    QVERIFY2(Dirette < Casi, "nothing was damaged");
    QVERIFY2(A == 100 || Dirette > Casi / 50, "the pages answered hardly ever: nothing was compared");
}

#include "TestPagineNote.moc"
