#include "supporto/prova.h"

#include "platform/database/criterio.h"
#include "platform/database/database.h"
#include "platform/system/guasti.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestDatabase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Cartella = NuovaCartella(); }

    void apreCioCheHaCreato();
    void testoRestaComeScritto_data();
    void testoRestaComeScritto();
    void tipiTornanoComeDichiarati();
    void colonnaAggiuntaPrendeIlTipoDallaDichiarazione();
    void tipiDaDichiarazioniAltrui_data();
    void tipiDaDichiarazioniAltrui();
    void nomiSenzaRiguardoAlleMaiuscole();
    void queryDelProgrammaComeStanno();
    void tabellaDoppiaRifiutata();
    void copiaTabellaPortaColonneERighe();
    void copiaTabellaTieneIlContatore();
    void copiaTabellaFallitaNonLasciaNulla();
    void annotazioniNascoste();
    void annotazioniNellaTransazione();
    void annotazioniDiAltri();
    void transazioneSenzaConfermaSiAnnulla();
    void transazioneNonSiAnnida();
    void istruzioniSbagliate_data();
    void istruzioniSbagliate();
    void valoriLegatiNonSonoSql();
    void unaConnessionePerFile();
    void chiusoConLUltimoUso();
    void fileSostituitoSiApreDiNuovo();
    void nonLasciaFileAccanto();

private:
    QString Cartella;
};

PROVA(TestDatabase);

namespace {

QList<Campo> OgniTipo()
{
    return {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
            {u"Vero"_s, TipoCampo::Booleano, 0, {}, false},
            {u"Piccolo"_s, TipoCampo::Byte, 0, {}, false},
            {u"Corto"_s, TipoCampo::Intero, 0, {}, false},
            {u"Soldi"_s, TipoCampo::Valuta, 0, {}, false},
            {u"Mezzo"_s, TipoCampo::Singolo, 0, {}, false},
            {u"Pieno"_s, TipoCampo::Doppio, 0, {}, false},
            {u"Giorno"_s, TipoCampo::Data, 0, {}, false},
            {u"Nominativo"_s, TipoCampo::Testo, 40, u"V=Y,L=Nome,S=30"_s, false},
            {u"Note"_s, TipoCampo::Memo, 0, {}, false}};
}

}  // namespace

void TestDatabase::apreCioCheHaCreato()
{
    const QString File = Cartella + u"nuovo.mdb"_s;
    CreateDatabase(File).CreaTabella(u"Clienti"_s, OgniTipo());
    const Database Db = OpenDatabase(File);
    QVERIFY(Db.Aperto());
    QVERIFY(!Db.DiSolaLettura());
    QCOMPARE(Db.Percorso(), QFileInfo(File).canonicalFilePath());
    QCOMPARE(Db.Tabelle(), QStringList{u"Clienti"_s});
    QVERIFY(!Database().Aperto());
    QCOMPARE(NumeroErrore([] { (void)Database().Tabelle(); }), 3024);
}

void TestDatabase::testoRestaComeScritto_data()
{
    QTest::addColumn<QString>("Testo");

    QTest::newRow("zeri davanti") << u"00123"_s;
    QTest::newRow("sembra un esponente") << u"1e5"_s;
    QTest::newRow("trenta cifre") << u"123456789012345678901234567890"_s;
    QTest::newRow("decimali in coda") << u"1.50"_s;
    QTest::newRow("blanks") << u"  7 "_s;
    QTest::newRow("vuoto non e Null") << u""_s;
    QTest::newRow("apici e virgolette") << u"l'\"altro\""_s;
    QTest::newRow("accenti e simboli") << u"Autorità € 𝔄"_s;
    QTest::newRow("NUL dentro") << QString(u"a\0b"_s);
}

void TestDatabase::testoRestaComeScritto()
{
    QFETCH(QString, Testo);
    const Database Db = CreateDatabase(Cartella + u"testi.mdb"_s);
    Db.CreaTabella(u"T"_s, OgniTipo());
    Recordset Righe = Db.OpenRecordset(u"T"_s);
    Righe.AddNew();
    Righe.ImpostaValue(u"Nominativo"_s, Testo);
    Righe.ImpostaValue(u"Note"_s, Testo);
    Righe.Update();
    Db.Execute(u"INSERT INTO T (Nominativo, Note) VALUES (?,?)"_s, {Testo, Testo});

    Recordset Lette = Db.OpenRecordset(u"SELECT Nominativo, Note FROM T"_s);
    QCOMPARE(Lette.RecordCount(), 2);
    for (; !Lette.Eof(); Lette.MoveNext()) {
        QCOMPARE(Lette.Value(u"Nominativo"_s), QVariant(Testo));
        QCOMPARE(Lette.Value(u"Note"_s), QVariant(Testo));
    }
}

void TestDatabase::tipiTornanoComeDichiarati()
{
    const QString File = Cartella + u"tipi.mdb"_s;
    CreateDatabase(File).CreaTabella(u"T"_s, OgniTipo());
    QCOMPARE(OpenDatabase(File).Campi(u"T"_s), OgniTipo());
}

void TestDatabase::colonnaAggiuntaPrendeIlTipoDallaDichiarazione()
{
    const QString File = Cartella + u"vecchia.mdb"_s;
    const Database Db = CreateDatabase(File);
    Db.CreaTabella(u"ParcellaParam"_s, {{u"IDCli"_s, TipoCampo::Lungo, 0, {}, false}});
    Db.Execute(u"INSERT INTO ParcellaParam VALUES (1)"_s);
    QVERIFY(!EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s));

    Db.Execute(u"ALTER TABLE ParcellaParam ADD SpeseGen Single"_s);

    QVERIFY(EsisteCampo(File, u"ParcellaParam"_s, u"SpeseGen"_s));
    QCOMPARE(Db.Campi(u"ParcellaParam"_s).last().Type, TipoCampo::Singolo);
    QCOMPARE(int(Db.Campi(u"ParcellaParam"_s).last().Type), 6);
    Recordset Riga = Db.OpenRecordset(u"ParcellaParam"_s);
    QVERIFY(!Riga.Value(u"SpeseGen"_s).isValid());
    QCOMPARE(NumeroErrore([&] { Db.Execute(u"ALTER TABLE ParcellaParam ADD SpeseGen Single"_s); }), 3380);
}

void TestDatabase::tipiDaDichiarazioniAltrui_data()
{
    QTest::addColumn<QString>("Dichiarata");
    QTest::addColumn<int>("Tipo");
    QTest::addColumn<int>("Misura");

    QTest::newRow("testo misurato") << u"varchar(30)"_s << 10 << 30;
    QTest::newRow("testo nudo") << u"Text"_s << 10 << 255;
    QTest::newRow("misura assurda") << u"TEXT(99999999999)"_s << 10 << 255;
    QTest::newRow("memo") << u"Memo"_s << 12 << 0;
    QTest::newRow("logico") << u"bit"_s << 1 << 0;
    QTest::newRow("intero corto") << u"Short"_s << 3 << 0;
    QTest::newRow("intero di altri") << u"UNSIGNED BIG INT"_s << 4 << 0;
    QTest::newRow("valuta") << u"CURRENCY"_s << 5 << 0;
    QTest::newRow("decimale") << u"DECIMAL(10,2)"_s << 7 << 0;
    QTest::newRow("data") << u"date"_s << 8 << 0;
    QTest::newRow("nulla di noto") << u"pere e mele"_s << 7 << 0;
    QTest::newRow("nessuna") << u""_s << 12 << 0;
}

void TestDatabase::tipiDaDichiarazioniAltrui()
{
    QFETCH(QString, Dichiarata);
    const Database Db = CreateDatabase(Cartella + u"altrui.mdb"_s);
    Db.Execute(u"CREATE TABLE T (a %1)"_s.arg(Dichiarata));
    const Campo C = Db.Campi(u"T"_s).first();
    QTEST(int(C.Type), "Tipo");
    QTEST(C.Size, "Misura");
}

void TestDatabase::nomiSenzaRiguardoAlleMaiuscole()
{
    const Database Db = CreateDatabase(Cartella + u"nomi.mdb"_s);
    Db.CreaTabella(u"Autorità"_s, {{u"Città"_s, TipoCampo::Testo, 20, {}, false}});
    QVERIFY(Db.EsisteTabella(u"AUTORITÀ"_s));
    QVERIFY(!Db.EsisteTabella(u"Autorita"_s));
    QVERIFY(Db.EsisteCampo(u"autorità"_s, u"CITTÀ"_s));
    QVERIFY(!Db.EsisteCampo(u"Autorità"_s, u"Citta"_s));
    QVERIFY(!Db.EsisteCampo(u"Manca"_s, u"Città"_s));
    QCOMPARE(Db.OpenRecordset(u"AUTORITÀ"_s).RecordCount(), 0);
    QCOMPARE(NumeroErrore([&] { (void)Db.Campi(u"Manca"_s); }), 3078);
}

void TestDatabase::queryDelProgrammaComeStanno()
{
    const Database Db = CreateDatabase(Cartella + u"query.mdb"_s);
    Db.CreaTabella(u"Autorità"_s, {{u"IDAut"_s, TipoCampo::Lungo, 0, {}, false},
                                   {u"DesAut"_s, TipoCampo::Testo, 50, {}, false},
                                   {u"TipoAut"_s, TipoCampo::Testo, 3, {}, false},
                                   {u"PreLoad"_s, TipoCampo::Booleano, 0, {}, false},
                                   {u"IDX"_s, TipoCampo::Intero, 0, {}, false}});
    for (const auto& [Chiave, Tipo, Posto] : {std::tuple{1, u"CIV"_s, 9}, {2, u"PEN"_s, 1}, {3, u"CIV"_s, 2}})
        Db.Execute(u"INSERT INTO Autorità VALUES (?,?,?,?,?)"_s, {Chiave, u"Corte"_s, Tipo, true, Posto});
    Recordset Righe = Db.OpenRecordset(
        u"SELECT IDAut, DesAut, TipoAut,PreLoad FROM Autorità WHERE TipoAut='CIV' ORDER BY IDX"_s);
    QCOMPARE(Righe.RecordCount(), 2);
    QCOMPARE(Righe.Value(u"IDAut"_s), QVariant(3));
    QCOMPARE(Righe.Value(u"PreLoad"_s), QVariant(true));
    QCOMPARE(Righe.Campi().size(), 4);

    Db.Execute(u"CREATE TABLE CoefficientiRaccordo (Coefficiente DOUBLE REAL, DataFin_Dal DATETIME TEXT, "
               "DataFin_Al DATETIME TEXT)"_s);
    Db.Execute(u"INSERT INTO CoefficientiRaccordo VALUES (1.5,?,?)"_s,
               {QDate(2011, 1, 1), QDate(2011, 12, 31)});
    const QString Raccordo =
        u"SELECT Coefficiente FROM CoefficientiRaccordo WHERE DataFin_Dal<=datevalue('%1')"
        "AND DataFin_Al>=datevalue('%1')"_s;
    QCOMPARE(Db.OpenRecordset(Raccordo.arg(u"31/12/2011"_s)).Value(u"Coefficiente"_s), QVariant(1.5));
    QVERIFY(Db.OpenRecordset(Raccordo.arg(u"01/01/2012"_s)).Eof());
    QCOMPARE(NumeroErrore([&] { (void)Db.OpenRecordset(Raccordo.arg(u"31/02/2011"_s)); }), 3421);
}

void TestDatabase::tabellaDoppiaRifiutata()
{
    const Database Db = CreateDatabase(Cartella + u"doppia.mdb"_s);
    Db.CreaTabella(u"Clienti"_s, OgniTipo());
    QCOMPARE(NumeroErrore([&] { Db.CreaTabella(u"CLIENTI"_s, OgniTipo()); }), 3010);
    Db.CreaIndice(u"Clienti"_s, u"Nome"_s, {u"Nominativo"_s});
    QCOMPARE(NumeroErrore([&] { Db.CreaIndice(u"Clienti"_s, u"Nome"_s, {u"Note"_s}); }), 3284);
}

void TestDatabase::copiaTabellaPortaColonneERighe()
{
    const Database Da = CreateDatabase(Cartella + u"parcelle.mdb"_s);
    Da.CreaTabella(u"T"_s, OgniTipo());
    Da.Execute(u"ALTER TABLE T ADD SpeseGen Single"_s);
    for (const int N : {3, 1, 2})
        Da.Execute(u"INSERT INTO T (ID, Nominativo, Giorno, SpeseGen) VALUES (?,?,?,?)"_s,
                   {10 - N, u"n%1"_s.arg(N), QDate(2012, 8, N), N + 0.5});
    const Database A = CreateDatabase(Cartella + u"nota.mdb"_s);

    Da.CopiaTabella(u"t"_s, A);

    QCOMPARE(A.Campi(u"T"_s), Da.Campi(u"T"_s));
    Recordset Righe = A.OpenRecordset(u"T"_s);
    QCOMPARE(Righe.RecordCount(), 3);
    QCOMPARE(Righe.Value(u"Nominativo"_s), QVariant(u"n3"_s));
    Righe.MoveLast();
    QCOMPARE(Righe.Value(u"Giorno"_s), QVariant(QDate(2012, 8, 1)));
    QCOMPARE(Righe.Value(u"SpeseGen"_s), QVariant(1.5));
    QCOMPARE(NumeroErrore([&] { Da.CopiaTabella(u"T"_s, A); }), 3010);
    QCOMPARE(NumeroErrore([&] { Da.CopiaTabella(u"Manca"_s, A); }), 3078);
}

void TestDatabase::copiaTabellaTieneIlContatore()
{
    const Database Da = CreateDatabase(Cartella + u"da.mdb"_s);
    Da.CreaTabella(u"T"_s, OgniTipo());
    Da.Execute(u"INSERT INTO T (ID) VALUES (41)"_s);
    const Database A = CreateDatabase(Cartella + u"a.mdb"_s);
    Da.CopiaTabella(u"T"_s, A);
    A.Execute(u"DELETE FROM T"_s);
    Recordset Righe = A.OpenRecordset(u"T"_s);
    Righe.AddNew();
    Righe.Update();
    // The key of a deleted row is not given out again.
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(42));
}

void TestDatabase::copiaTabellaFallitaNonLasciaNulla()
{
    const Database Da = CreateDatabase(Cartella + u"da.mdb"_s);
    Da.Execute(u"CREATE TABLE T (a TEXT, \"sqlite\" TEXT)"_s);
    Da.Execute(u"INSERT INTO T (a) VALUES (?)"_s, {QString(200000, u'x')});
    guasti::LimitePagine = 20;
    const Database A = CreateDatabase(Cartella + u"a.mdb"_s);
    guasti::LimitePagine = 0;
    QCOMPARE(NumeroErrore([&] { Da.CopiaTabella(u"T"_s, A); }), 3026);
    QCOMPARE(A.Tabelle(), QStringList());
}

void TestDatabase::annotazioniNascoste()
{
    const Database Db = CreateDatabase(Cartella + u"t.mdb"_s);
    Db.CreaTabella(u"T"_s, OgniTipo());
    QVERIFY(Db.Annotazioni().isEmpty());
    Db.Annota({{u"uno"_s, u"1"_s}, {u"testo"_s, u"a capo\n\"e\" 'virgolette'"_s}, {u"vuoto"_s, QString()}});
    QCOMPARE(Db.Tabelle(), QStringList(u"T"_s));
    QVERIFY(!Db.EsisteTabella(u"_Calcanova"_s));
    QCOMPARE(NumeroErrore([&] { (void)Db.OpenRecordset(u"_Calcanova"_s); }), 3078);
    const auto Lette = OpenDatabase(Cartella + u"t.mdb"_s, true).Annotazioni();
    QCOMPARE(Lette.keys(), QStringList({u"testo"_s, u"uno"_s, u"vuoto"_s}));
    QCOMPARE(Lette[u"testo"_s], u"a capo\n\"e\" 'virgolette'"_s);
    // Others take their place as a whole.
    Db.Annota({{u"due"_s, u"2"_s}});
    QCOMPARE(Db.Annotazioni().keys(), QStringList(u"due"_s));
}

void TestDatabase::annotazioniNellaTransazione()
{
    const Database Db = CreateDatabase(Cartella + u"t.mdb"_s);
    {
        const Transazione Annullata(Db);
        Db.Annota({{u"uno"_s, u"1"_s}});
        QCOMPARE(Db.Annotazioni().size(), 1);
    }
    QVERIFY(Db.Annotazioni().isEmpty());
    const Database Lettura = OpenDatabase(Cartella + u"t.mdb"_s, true);
    QCOMPARE(NumeroErrore([&] { Lettura.Annota({}); }), 3027);
}

void TestDatabase::annotazioniDiAltri()
{
    const Database Db = CreateDatabase(Cartella + u"t.mdb"_s);
    Db.Execute(u"CREATE TABLE \"_Calcanova\" (a TEXT)"_s);
    QVERIFY(Db.Annotazioni().isEmpty());
    Db.Execute(u"DROP TABLE \"_Calcanova\""_s);
    Db.Execute(u"CREATE VIEW \"_Calcanova\" AS SELECT 'n' AS Nome, 'v' AS Valore"_s);
    QVERIFY(Db.Annotazioni().isEmpty());
}

void TestDatabase::transazioneSenzaConfermaSiAnnulla()
{
    const Database Db = CreateDatabase(Cartella + u"t.mdb"_s);
    Db.Execute(u"CREATE TABLE T (a INTEGER)"_s);
    {
        const Transazione Annullata(Db);
        Db.Execute(u"INSERT INTO T VALUES (1)"_s);
        Db.CreaTabella(u"Altra"_s, OgniTipo());
        QCOMPARE(Db.OpenRecordset(u"T"_s).RecordCount(), 1);
    }
    QCOMPARE(Db.OpenRecordset(u"T"_s).RecordCount(), 0);
    QCOMPARE(Db.Tabelle(), QStringList{u"T"_s});
    {
        Transazione Confermata(Db);
        Db.Execute(u"INSERT INTO T VALUES (2)"_s);
        Confermata.Conferma();
    }
    QCOMPARE(Db.OpenRecordset(u"T"_s).Value(u"a"_s), QVariant(2));
}

void TestDatabase::transazioneNonSiAnnida()
{
    const Database Db = CreateDatabase(Cartella + u"t.mdb"_s);
    const Transazione Prima(Db);
    QCOMPARE(NumeroErrore([&] { const Transazione Seconda(Db); }), 3246);
    QCOMPARE(NumeroErrore([&] { const Transazione Seconda(OpenDatabase(Db.Percorso(), true)); }), 3027);
}

void TestDatabase::istruzioniSbagliate_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<int>("Numero");

    QTest::newRow("sintassi") << u"INSERT INTI T"_s << 3144;
    QTest::newRow("vuota") << u" "_s << 3144;
    QTest::newRow("tabella mancante") << u"DELETE FROM Manca"_s << 3078;
    QTest::newRow("colonna mancante") << u"UPDATE T SET z=1"_s << 3061;
    QTest::newRow("colonna mancante in INSERT") << u"INSERT INTO T (z) VALUES (1)"_s << 3061;
    QTest::newRow("virgolette non sono testo") << u"UPDATE T SET a=\"x\""_s << 3061;
    QTest::newRow("chiave doppia") << u"INSERT INTO T (ID) VALUES (1)"_s << 3022;
    QTest::newRow("due istruzioni") << u"DELETE FROM T; DELETE FROM T"_s << 3142;
    QTest::newRow("NUL e poi altro") << QString(u"DELETE FROM T\0; DROP TABLE T"_s) << 3142;
    QTest::newRow("valori mancanti") << u"INSERT INTO T (a) VALUES (?)"_s << 3061;
    QTest::newRow("tabella gia presente") << u"CREATE TABLE T (a)"_s << 3010;
    QTest::newRow("indice gia presente") << u"CREATE INDEX PerA ON T (a)"_s << 3284;
    QTest::newRow("tabella col nome di un indice") << u"CREATE TABLE PerA (a)"_s << 3010;
    QTest::newRow("indice col nome di una tabella") << u"CREATE INDEX T ON T (a)"_s << 3010;
    QTest::newRow("tabella che nomina un indice") << u"CREATE TABLE \"index di T\" (a)"_s << 3010;
    QTest::newRow("indice mancante") << u"DROP INDEX Manca"_s << 3015;
    QTest::newRow("parola riservata") << u"UPDATE T SET index=1"_s << 3144;
    QTest::newRow("file aggiunto") << u"ATTACH '/tmp/x' AS y"_s << 3144;
}

void TestDatabase::istruzioniSbagliate()
{
    QFETCH(QString, Sql);
    const Database Db = CreateDatabase(Cartella + u"s.mdb"_s);
    Db.Execute(u"CREATE TABLE T (ID INTEGER PRIMARY KEY, a TEXT)"_s);
    Db.Execute(u"INSERT INTO T VALUES (1,'a')"_s);
    Db.Execute(u"CREATE INDEX PerA ON T (a)"_s);
    Db.Execute(u"CREATE TABLE \"index di T\" (a)"_s);
    QTEST(NumeroErrore([&] { Db.Execute(Sql); }), "Numero");
    QCOMPARE(Db.OpenRecordset(u"T"_s).Value(u"a"_s), QVariant(u"a"_s));
}

void TestDatabase::valoriLegatiNonSonoSql()
{
    const Database Db = CreateDatabase(Cartella + u"legati.mdb"_s);
    Db.Execute(u"CREATE TABLE Fatture (Rif TEXT, CorriF DOUBLE REAL, DataF DATETIME TEXT, Vera BOOLEAN)"_s);
    const QString Rif = u"x'; DROP TABLE Fatture; --"_s;
    QCOMPARE(Db.Execute(u"INSERT INTO Fatture VALUES (?,?,?,?)"_s, {Rif, 3.421, QDate(2012, 7, 20), true}),
             1);
    QCOMPARE(Db.Execute(u"UPDATE Fatture SET DataF=? WHERE Rif=?"_s, {QVariant(), Rif}), 1);
    QCOMPARE(Db.Execute(u"UPDATE Fatture SET DataF=? WHERE Rif=?"_s, {QVariant(), u"x"_s}), 0);
    Recordset Riga = Db.OpenRecordset(u"SELECT * FROM Fatture WHERE Rif=?"_s, {Rif});
    QCOMPARE(Riga.RecordCount(), 1);
    QCOMPARE(Riga.Value(u"CorriF"_s), QVariant(3.421));
    QVERIFY(!Riga.Value(u"DataF"_s).isValid());
    QCOMPARE(Db.OpenRecordset(u"SELECT CAST(Vera AS TEXT) AS v FROM Fatture"_s).Value(u"v"_s),
             QVariant(u"-1"_s));
    QCOMPARE(NumeroErrore([&] { Db.Execute(u"UPDATE Fatture SET CorriF=?"_s, {qQNaN()}); }), 3421);
}

void TestDatabase::unaConnessionePerFile()
{
    const QString File = Cartella + u"uno.mdb"_s;
    const Database Prima = CreateDatabase(File);
    QVERIFY(QFile::link(File, Cartella + u"altro.mdb"_s));
    const Database Lettura = OpenDatabase(Cartella + u"altro.mdb"_s, true);
    const Database Scrittura = OpenDatabase(Cartella + u"./uno.mdb"_s);
    QVERIFY(Lettura.DiSolaLettura());
    QVERIFY(!Scrittura.DiSolaLettura());
    Scrittura.Execute(u"CREATE TABLE T (a INTEGER)"_s);
    const Transazione Aperta(Scrittura);
    Scrittura.Execute(u"INSERT INTO T VALUES (1)"_s);
    // Another connection would not see the row before it is confirmed.
    QCOMPARE(Lettura.OpenRecordset(u"T"_s).RecordCount(), 1);
    QCOMPARE(NumeroErrore([&] { Lettura.Execute(u"DELETE FROM T"_s); }), 3027);
}

void TestDatabase::chiusoConLUltimoUso()
{
    const QString File = Cartella + u"chiuso.mdb"_s;
    Recordset Righe;
    {
        const Database Db = CreateDatabase(File);
        Db.Execute(u"CREATE TABLE T (a INTEGER)"_s);
        Db.Execute(u"INSERT INTO T VALUES (7)"_s);
        Righe = Db.OpenRecordset(u"T"_s);
    }
    QCOMPARE(Righe.Value(u"a"_s), QVariant(7));
    QCOMPARE(FileAperti(File), 1);
    Righe.Close();
    QCOMPARE(FileAperti(File), 0);
    QVERIFY(!Righe.Aperto());
    QVERIFY(Righe.Eof());
}

void TestDatabase::fileSostituitoSiApreDiNuovo()
{
    const QString File = Cartella + u"nota.mdb"_s;
    const Database Vecchio = CreateDatabase(File);
    Vecchio.Execute(u"CREATE TABLE Vecchia (a INTEGER)"_s);
    QVERIFY(QFile::remove(File));
    const Database Nuovo = CreateDatabase(File);
    QCOMPARE(Nuovo.Tabelle(), QStringList());
    QCOMPARE(OpenDatabase(File).Tabelle(), QStringList());
    QCOMPARE(Vecchio.Tabelle(), QStringList{u"Vecchia"_s});
}

void TestDatabase::nonLasciaFileAccanto()
{
    const Database Db = CreateDatabase(Cartella + u"solo.mdb"_s);
    Db.Execute(u"CREATE TABLE T (a INTEGER)"_s);
    {
        const Transazione Annullata(Db);
        Db.Execute(u"INSERT INTO T VALUES (1)"_s);
    }
    QCOMPARE(QDir(Cartella).entryList(QDir::Files), QStringList{u"solo.mdb"_s});
}

#include "TestDatabase.moc"
