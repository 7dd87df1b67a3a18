// Files that are missing, damaged, locked, foreign or hostile, and disks that are full.
#include "supporto/prova.h"

#include "platform/database/criterio.h"
#include "platform/database/database.h"
#include "platform/system/attese.h"
#include "platform/system/file.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"

#include <QRandomGenerator>

#include <filesystem>

using namespace Qt::StringLiterals;

class TestDatabaseGuasti : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Cartella = NuovaCartella(); }
    void cleanup();

    void fileCheNonSiAprono_data();
    void fileCheNonSiAprono();
    void fileCheNonSiCreano_data();
    void fileCheNonSiCreano();
    void creazioneFallitaNonLasciaFile();
    void troncato_data();
    void troncato();
    void pagineGuaste();
    void solaLetturaDaiPermessi();
    void tornaScrivibile();
    void discoPienoLasciaIlFileComEra();
    void confermaFallitaNonScrive();
    void bloccoAltruiSiAttende();
    void scritturaInterrottaSiRipara();
    void interrottaEDiSolaLettura_data();
    void interrottaEDiSolaLettura();
    void interrottaEDiSolaLetturaIntantoScritta();
    void vistaColNomeDellaTabella();
    void grillettoNonParte();
    void tabellaDeiCampiEstranea();
    void tipiAssurdi();
    void senzaChiaveDiRiga();
    void colonnaChiamataRowid();

private:
    [[nodiscard]] QByteArray Leggi(const QString& File) const;
    void Scrivi(const QString& File, const QByteArray& Contenuto) const;
    /// A file with a table T (a INTEGER, b TEXT) of some hundred rows.
    [[nodiscard]] QString FileBuono() const;
    /// A copy of the good file in the middle of a write, and its journal.
    void Interrompi(const QString& Copia) const;

    QString Cartella;
};

PROVA(TestDatabaseGuasti);

void TestDatabaseGuasti::cleanup()
{
    guasti::LimitePagine = 0;
    attese::BlocchiMs = 3000;
}

QByteArray TestDatabaseGuasti::Leggi(const QString& File) const
{
    QFile Aperto(File);
    return Aperto.open(QIODevice::ReadOnly) ? Aperto.readAll() : QByteArray();
}

void TestDatabaseGuasti::Scrivi(const QString& File, const QByteArray& Contenuto) const
{
    QFile Aperto(File);
    QVERIFY(Aperto.open(QIODevice::WriteOnly));
    QCOMPARE(Aperto.write(Contenuto), Contenuto.size());
}

QString TestDatabaseGuasti::FileBuono() const
{
    const QString File = Cartella + u"buono.mdb"_s;
    const Database Db = CreateDatabase(File);
    Db.Execute(u"CREATE TABLE T (a INTEGER, b TEXT)"_s);
    Db.Execute(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<500) "
               "INSERT INTO T SELECT i, printf('%.60c', 'x') FROM n"_s);
    return File;
}

void TestDatabaseGuasti::fileCheNonSiAprono_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QByteArray>("Contenuto");
    QTest::addColumn<int>("Numero");

    QTest::newRow("manca") << u"manca.mdb"_s << QByteArray() << 3024;
    QTest::newRow("manca la cartella") << u"no/manca.mdb"_s << QByteArray() << 3024;
    QTest::newRow("cartella") << u"."_s << QByteArray() << 75;
    QTest::newRow("vuoto") << u"f.mdb"_s << QByteArray("") << 3343;
    QTest::newRow("testo") << u"f.mdb"_s << QByteArray("Gentile cliente").repeated(20) << 3343;
    QTest::newRow("altro motore") << u"f.mdb"_s
                                  << QByteArray("\0\1\0\0Standard Jet DB\0", 20).leftJustified(4096) << 3343;
    QTest::newRow("sola testata") << u"f.mdb"_s << QByteArray("SQLite format 3\0", 16) << 3343;
    QTest::newRow("testata e nulla") << u"f.mdb"_s
                                     << QByteArray("SQLite format 3\0", 16).leftJustified(4096, '\0') << 3343;
}

void TestDatabaseGuasti::fileCheNonSiAprono()
{
    QFETCH(QString, Nome);
    QFETCH(QByteArray, Contenuto);
    if (!Contenuto.isNull())
        Scrivi(Cartella + Nome, Contenuto);
    QTEST(NumeroErrore([&] { (void)OpenDatabase(Cartella + Nome); }), "Numero");
    QTEST(NumeroErrore([&] { (void)EsisteCampo(Cartella + Nome, u"T"_s, u"a"_s); }), "Numero");
}

void TestDatabaseGuasti::fileCheNonSiCreano_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<int>("Numero");

    QTest::newRow("esiste") << u"esiste.mdb"_s << 3204;
    QTest::newRow("collegamento a nulla") << u"appeso.mdb"_s << 3204;
    QTest::newRow("nessuna cartella") << u"no/nuovo.mdb"_s << 3044;
    QTest::newRow("cartella che rifiuta") << u"chiusa/nuovo.mdb"_s << 75;
}

void TestDatabaseGuasti::fileCheNonSiCreano()
{
    QFETCH(QString, Nome);
    Scrivi(Cartella + u"esiste.mdb"_s, "mio");
    QVERIFY(QFile::link(Cartella + u"nulla"_s, Cartella + u"appeso.mdb"_s));
    QVERIFY(QDir(Cartella).mkdir(u"chiusa"_s));
    const QFile::Permissions Leggibile = QFile::ReadOwner | QFile::ExeOwner;
    QVERIFY(QFile::setPermissions(Cartella + u"chiusa"_s, Leggibile));
    QTEST(NumeroErrore([&] { (void)CreateDatabase(Cartella + Nome); }), "Numero");
    QVERIFY(QFile::setPermissions(Cartella + u"chiusa"_s, Leggibile | QFile::WriteOwner));
    QCOMPARE(Leggi(Cartella + u"esiste.mdb"_s), QByteArray("mio"));
    QVERIFY(!QFile::exists(Cartella + u"chiusa/nuovo.mdb"_s));
}

void TestDatabaseGuasti::creazioneFallitaNonLasciaFile()
{
    guasti::LimitePagine = 1;
    QCOMPARE(NumeroErrore([&] { (void)CreateDatabase(Cartella + u"nuovo.mdb"_s); }), 3026);
    QVERIFY(QDir(Cartella).isEmpty());
}

void TestDatabaseGuasti::troncato_data()
{
    QTest::addColumn<double>("Parte");

    QTest::newRow("quasi intero") << 0.99;
    QTest::newRow("a meta") << 0.5;
    QTest::newRow("una pagina") << 0.1;
}

void TestDatabaseGuasti::troncato()
{
    QFETCH(double, Parte);
    const QString File = FileBuono();
    const QByteArray Intero = Leggi(File);
    Scrivi(File, Intero.first(qsizetype(double(Intero.size()) * Parte)));
    QCOMPARE(NumeroErrore([&] { (void)OpenDatabase(File); }), 3343);
}

// Whatever the damage, an error of ours comes back, or rows: never a crash, never another exception.
void TestDatabaseGuasti::pagineGuaste()
{
    const QString Buono = FileBuono();
    const QByteArray Intero = Leggi(Buono);
    QRandomGenerator Caso(7);
    int Rifiutati = 0;
    for (int Giro = 0; Giro < 60; ++Giro) {
        QByteArray Guasto = Intero;
        for (int i = 0; i < 40; ++i)
            Guasto[16 + Caso.bounded(int(Guasto.size()) - 16)] = char(Caso.bounded(256));
        const QString File = Cartella + u"guasto%1.mdb"_s.arg(Giro);
        Scrivi(File, Guasto);
        const int Numero = NumeroErrore([&] {
            const Database Db = OpenDatabase(File);
            for (Recordset Righe = Db.OpenRecordset(u"T"_s); !Righe.Eof(); Righe.MoveNext())
                (void)Righe.Value(u"b"_s);
        });
        Rifiutati += Numero != 0;
        QVERIFY2(QList<int>({0, 3343, 3078, 3167, 7, 1000, 3265, 75, 3144, 3043, 3047}).contains(Numero),
                 qPrintable(QString::number(Numero)));
    }
    QVERIFY(Rifiutati > 0);
}

void TestDatabaseGuasti::solaLetturaDaiPermessi()
{
    const QString File = FileBuono();
    QVERIFY(QFile::setPermissions(File, QFile::ReadOwner));
    {
        const Database Db = OpenDatabase(File);
        QVERIFY(Db.DiSolaLettura());
        QCOMPARE(NumeroErrore([&] { Db.Execute(u"DELETE FROM T"_s); }), 3027);
        QCOMPARE(NumeroErrore([&] { Db.CreaTabella(u"U"_s, {}); }), 3027);
        QCOMPARE(NumeroErrore([&] { const Transazione Nuova(Db); }), 3027);
        Recordset Righe = Db.OpenRecordset(u"T"_s);
        QCOMPARE(NumeroErrore([&] { Righe.Edit(); }), 3027);
        QCOMPARE(Righe.RecordCount(), 500);
    }
    QVERIFY(QFile::setPermissions(File, QFile::WriteOwner));
    QCOMPARE(NumeroErrore([&] { (void)OpenDatabase(File); }), 75);
}

void TestDatabaseGuasti::tornaScrivibile()
{
    // A template is opened read-only; its attribute is cleared for the upgrade while a reader stays.
    const QString File = FileBuono();
    QVERIFY(QFile::setPermissions(File, QFile::ReadOwner));
    const Database Lettore = OpenDatabase(File);
    QVERIFY(QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner));
    const Database Scrittore = OpenDatabase(File);
    QVERIFY(!Scrittore.DiSolaLettura());
    Scrittore.Execute(u"DELETE FROM T WHERE a>1"_s);
    QCOMPARE(Lettore.OpenRecordset(u"T"_s).RecordCount(), 1);
    QVERIFY(QFile::setPermissions(File, QFile::ReadOwner));
    QVERIFY(OpenDatabase(File).DiSolaLettura());
}

void TestDatabaseGuasti::discoPienoLasciaIlFileComEra()
{
    const QString File = FileBuono();
    const QByteArray Prima = Leggi(File);
    guasti::LimitePagine = int(Prima.size() / 4096) + 3;
    {
        const Database Db = OpenDatabase(File);
        Transazione Salvataggio(Db);
        Db.Execute(u"DELETE FROM T WHERE a<3"_s);
        Recordset Righe = Db.OpenRecordset(u"T"_s);
        Righe.AddNew();
        Righe.ImpostaValue(u"b"_s, QString(200, u'y'));
        Righe.Update();
        QCOMPARE(NumeroErrore([&] { Db.Execute(u"INSERT INTO T VALUES (1,?)"_s, {QString(100000, u'z')}); }),
                 3026);
    }
    QCOMPARE(Leggi(File), Prima);
    QCOMPARE(QDir(Cartella).entryList(QDir::Files).size(), 1);
}

void TestDatabaseGuasti::confermaFallitaNonScrive()
{
    const QString File = FileBuono();
    const QString Altro = Cartella + u"altro.mdb"_s;
    std::filesystem::create_hard_link(File.toStdString(), Altro.toStdString());
    attese::BlocchiMs = 50;
    const Database Mio = OpenDatabase(File);
    const Database Suo = OpenDatabase(Altro);
    Suo.Execute(u"BEGIN"_s);
    QCOMPARE(Suo.OpenRecordset(u"T"_s).RecordCount(), 500);  // a reader that stays halts the writer's end
    {
        Transazione Salvataggio(Mio);
        Mio.Execute(u"DELETE FROM T"_s);
        QCOMPARE(NumeroErrore([&] { Salvataggio.Conferma(); }), 3260);
    }
    QCOMPARE(Mio.OpenRecordset(u"T"_s).RecordCount(), 500);
    Suo.Execute(u"COMMIT"_s);
    QCOMPARE(Suo.OpenRecordset(u"T"_s).RecordCount(), 500);
}

void TestDatabaseGuasti::bloccoAltruiSiAttende()
{
    // Another name of the same file gets a connection of its own, as another program would.
    const QString File = FileBuono();
    const QString Altro = Cartella + u"altro.mdb"_s;
    std::filesystem::create_hard_link(File.toStdString(), Altro.toStdString());
    attese::BlocchiMs = 50;
    const Database Mio = OpenDatabase(File);
    const Database Suo = OpenDatabase(Altro);
    {
        const Transazione Aperta(Suo);
        Suo.Execute(u"DELETE FROM T"_s);
        QCOMPARE(NumeroErrore([&] { Mio.Execute(u"DELETE FROM T"_s); }), 3260);
        QCOMPARE(NumeroErrore([&] { const Transazione Nuova(Mio); }), 3260);
        QCOMPARE(Mio.OpenRecordset(u"T"_s).RecordCount(), 500);
    }
    QCOMPARE(Mio.Execute(u"DELETE FROM T"_s), 500);
}

void TestDatabaseGuasti::scritturaInterrottaSiRipara()
{
    const QString Copia = Cartella + u"interrotto.mdb"_s;
    Interrompi(Copia);
    QVERIFY(Leggi(Copia).contains("interrotto"));
    const Database Db = OpenDatabase(Copia);
    QCOMPARE(Db.OpenRecordset(u"T"_s).RecordCount(), 500);
    QCOMPARE(Db.OpenRecordset(u"SELECT * FROM T WHERE b='interrotto'"_s).RecordCount(), 0);
}

void TestDatabaseGuasti::Interrompi(const QString& Copia) const
{
    const QString File = FileBuono();
    const Database Db = OpenDatabase(File);
    const Transazione Aperta(Db);
    // More than the engine's cache: the file is written before the transaction ends.
    Db.Execute(u"PRAGMA cache_size=1"_s);
    Db.Execute(u"UPDATE T SET b='interrotto'"_s);
    QVERIFY(QFile::copy(File, Copia));
    QVERIFY(QFile::copy(File + u"-journal"_s, Copia + u"-journal"_s));
}

void TestDatabaseGuasti::interrottaEDiSolaLettura_data()
{
    QTest::addColumn<bool>("IlDiscoRegge");
    QTest::newRow("mended") << true;
    QTest::newRow("the disk fails, and it is as before") << false;
}

/// It is mended without its attribute ever being taken away: whoever dies meanwhile leaves no writable
/// template.
void TestDatabaseGuasti::interrottaEDiSolaLettura()
{
    QFETCH(bool, IlDiscoRegge);
    const QString Qui = NuovaCartella();
    const QString Copia = Qui + u"interrotto.mdb"_s;
    Interrompi(Copia);
    ImpostaSolaLettura(Copia, true);
    const QFile::Permissions Prima = QFile::permissions(Copia);
    const QByteArray Byte = Leggi(Copia);
    int Volte = 0;
    guasti::PrimaDelDisco = [&](const QString& File) {
        ++Volte;
        return File != Copia && SolaLettura(Copia) && Leggi(Copia) == Byte && IlDiscoRegge;
    };
    const auto Sano = [&] {
        const Database Db = OpenDatabase(Copia);
        return Db.DiSolaLettura() && Db.OpenRecordset(u"T"_s).RecordCount() == 500 &&
               Db.OpenRecordset(u"SELECT * FROM T WHERE b='interrotto'"_s).RecordCount() == 0;
    };
    if (IlDiscoRegge)
        QVERIFY(Sano());
    else
        QVERIFY(NumeroErrore([&] { (void)OpenDatabase(Copia).OpenRecordset(u"T"_s); }) != 0);
    QCOMPARE(Volte, 1);
    guasti::PrimaDelDisco = {};
    QCOMPARE(QFile::permissions(Copia), Prima);
    if (!IlDiscoRegge) {
        QCOMPARE(Leggi(Copia), Byte);
        QCOMPARE(ContenutoDi(Qui), (QStringList{u"interrotto.mdb"_s, u"interrotto.mdb-journal"_s}));
        QVERIFY(Sano());
    }
    QCOMPARE(ContenutoDi(Qui), QStringList{u"interrotto.mdb"_s});
}

/// A program that is still writing owns its journal, whatever has become of the attribute.
void TestDatabaseGuasti::interrottaEDiSolaLetturaIntantoScritta()
{
    const QString File = FileBuono();
    const QString Altro = Cartella + u"altro.mdb"_s;
    std::filesystem::create_hard_link(File.toStdString(), Altro.toStdString());
    attese::BlocchiMs = 50;
    {
        const Database Suo = OpenDatabase(Altro);
        const Transazione Aperta(Suo);
        Suo.Execute(u"UPDATE T SET b='in corso' WHERE a=1"_s);
        // Its journal has another name's letters; the look at it is the same.
        QVERIFY(QFile::copy(Altro + u"-journal"_s, File + u"-journal"_s));
        ImpostaSolaLettura(File, true);
        const Database Db = OpenDatabase(File);
        QCOMPARE(Db.OpenRecordset(u"T"_s).RecordCount(), 500);
        QVERIFY2(EsisteFile(File + u"-journal"_s), "somebody's");
    }
    QVERIFY(QFileInfo(File).exists());
}

void TestDatabaseGuasti::vistaColNomeDellaTabella()
{
    const QString File = Cartella + u"vista.mdb"_s;
    const Database Db = CreateDatabase(File);
    Db.Execute(u"CREATE VIEW clienti AS SELECT 1 AS ID"_s);
    QVERIFY(!Db.EsisteTabella(u"clienti"_s));
    QVERIFY(!EsisteCampo(File, u"clienti"_s, u"ID"_s));
    QCOMPARE(NumeroErrore([&] { (void)Db.OpenRecordset(u"clienti"_s); }), 3078);
    QCOMPARE(NumeroErrore([&] { (void)Db.OpenRecordset(u"SELECT * FROM clienti"_s); }), 3078);
}

void TestDatabaseGuasti::grillettoNonParte()
{
    const Database Db = CreateDatabase(Cartella + u"grilletto.mdb"_s);
    Db.Execute(u"CREATE TABLE T (a INTEGER)"_s);
    Db.Execute(u"CREATE TABLE U (a INTEGER)"_s);
    Db.Execute(u"CREATE TRIGGER g AFTER INSERT ON T BEGIN INSERT INTO U VALUES (1); END"_s);
    Db.Execute(u"INSERT INTO T VALUES (1)"_s);
    QCOMPARE(Db.OpenRecordset(u"U"_s).RecordCount(), 0);
}

void TestDatabaseGuasti::tabellaDeiCampiEstranea()
{
    const Database Db = CreateDatabase(Cartella + u"campi.mdb"_s);
    Db.CreaTabella(u"T"_s, {{u"a"_s, TipoCampo::Testo, 5, u"V=N"_s, false}});
    Db.Execute(u"UPDATE \"_Campi\" SET Tipo=99, Dimensione=-7, Descrizione=X'00FF'"_s);
    QCOMPARE(Db.Campi(u"T"_s).first().Type, TipoCampo::Testo);
    QCOMPARE(Db.Campi(u"T"_s).first().Size, 5);
    Db.Execute(u"UPDATE \"_Campi\" SET Tipo=10, Dimensione=-7"_s);
    QCOMPARE(Db.Campi(u"T"_s).first().Size, 0);
    Db.Execute(u"DROP TABLE \"_Campi\""_s);
    QCOMPARE(Db.Campi(u"T"_s).first().Size, 5);
    Db.Execute(u"CREATE TABLE \"_Campi\" (x)"_s);
    QCOMPARE(Db.Campi(u"T"_s).first().Type, TipoCampo::Testo);
    QCOMPARE(Db.Tabelle(), QStringList{u"T"_s});
}

void TestDatabaseGuasti::tipiAssurdi()
{
    const Database Db = CreateDatabase(Cartella + u"assurdi.mdb"_s);
    Db.Execute(u"CREATE TABLE T (a \"((((\", b, c INT_TEXT_DATE, \"\" TEXT)"_s);
    Db.Execute(u"INSERT INTO T VALUES ('x', X'FFFE00', 1.5, zeroblob(1000))"_s);
    Recordset Righe = Db.OpenRecordset(u"T"_s);
    QCOMPARE(Righe.Value(u"a"_s), QVariant(u"x"_s));
    QCOMPARE(Righe.Value(u"b"_s).toString().size(), 3);
    QCOMPARE(Righe.Value(u"c"_s), QVariant(1.5));
    QCOMPARE(Righe.Value(u""_s).toString().size(), 1000);
    const Database A = CreateDatabase(Cartella + u"copia.mdb"_s);
    Db.CopiaTabella(u"T"_s, A);
    QCOMPARE(A.OpenRecordset(u"T"_s).RecordCount(), 1);
}

void TestDatabaseGuasti::senzaChiaveDiRiga()
{
    const Database Db = CreateDatabase(Cartella + u"senza.mdb"_s);
    Db.Execute(u"CREATE TABLE T (a TEXT PRIMARY KEY, b INTEGER) WITHOUT ROWID"_s);
    Db.Execute(u"INSERT INTO T VALUES ('x', 1), ('y', 2)"_s);
    Recordset Righe = Db.OpenRecordset(u"T"_s);
    QCOMPARE(Righe.RecordCount(), 2);
    Righe.FindFirst(u"b=2"_s);
    QCOMPARE(Righe.Value(u"a"_s), QVariant(u"y"_s));
    QCOMPARE(NumeroErrore([&] { Righe.Edit(); }), 3027);
    QCOMPARE(NumeroErrore([&] { Righe.ImpostaIndex(u"a"_s); }), 3015);
    const Database A = CreateDatabase(Cartella + u"copia.mdb"_s);
    Db.CopiaTabella(u"T"_s, A);
    QCOMPARE(A.OpenRecordset(u"T"_s).RecordCount(), 2);
}

void TestDatabaseGuasti::colonnaChiamataRowid()
{
    const Database Db = CreateDatabase(Cartella + u"rowid.mdb"_s);
    Db.Execute(u"CREATE TABLE T (ROWID TEXT, _rowid_ TEXT)"_s);
    Db.Execute(u"INSERT INTO T VALUES ('x', 'a'), ('x', 'b')"_s);
    Recordset Righe = Db.OpenRecordset(u"T"_s);
    Righe.MoveNext();
    QCOMPARE(Righe.Value(u"_rowid_"_s), QVariant(u"b"_s));
    Righe.Delete();
    QCOMPARE(Db.OpenRecordset(u"T"_s).Value(u"_rowid_"_s), QVariant(u"a"_s));
}

#include "TestDatabaseGuasti.moc"
