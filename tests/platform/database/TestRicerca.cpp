#include "supporto/prova.h"

#include "platform/database/clienti.h"
#include "platform/database/database.h"
#include "supporto/guasti.h"

using namespace Qt::StringLiterals;

class TestRicerca : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Db = ArchivioClienti(); }

    void trovaNellOrdineDelleRighe();
    void trovaIndietro();
    void trovaSuCopiaFissa();
    void trovaTestoSenzaMaiuscole_data();
    void trovaTestoSenzaMaiuscole();
    void trovaFraMolteRighe();
    void cercaConIndice_data();
    void cercaConIndice();
    void cercaSuPiuColonne();
    void cercaTestoSenzaMaiuscole();
    void indiciSbagliati();
    void segnalibriECloni();

private:
    Database Db;
};

PROVA(TestRicerca);

void TestRicerca::trovaNellOrdineDelleRighe()
{
    Recordset Righe = Db.OpenRecordset(u"SELECT * FROM Clienti ORDER BY \"1Med\""_s);  // 3 4 2 1
    Righe.FindFirst(u"Anni>0"_s);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(3));
    Righe.FindNext(u"Anni>0"_s);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(2));
    Righe.FindNext(u"Anni>0"_s);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
    QVERIFY(!Righe.NoMatch());
    Righe.FindNext(u"Anni>0"_s);
    QVERIFY(Righe.NoMatch());
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));  // the current row stays

    Recordset Parte = Db.OpenRecordset(u"SELECT * FROM Clienti WHERE ID<>1"_s);
    Parte.FindFirst(u"Anni=3"_s);
    QCOMPARE(Parte.Value(u"ID"_s), QVariant(3));
    Parte.FindFirst(u"ID=1"_s);  // in the table, not in the set
    QVERIFY(Parte.NoMatch());
}

void TestRicerca::trovaIndietro()
{
    for (const QString& Sql : {u"Clienti"_s, u"SELECT * FROM Clienti ORDER BY -ID DESC"_s}) {
        Recordset Righe = Db.OpenRecordset(Sql);
        Righe.FindLast(u"Anni=3"_s);
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(3));
        Righe.FindPrevious(u"Anni=3"_s);
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
        Righe.FindPrevious(u"Anni=3"_s);
        QVERIFY(Righe.NoMatch());
        Righe.MoveFirst();
        Righe.Delete();
        Righe.FindNext(u"Anni>0"_s);  // behind a deleted row begins with the one that followed it
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(2));
        init();
    }
}

void TestRicerca::trovaSuCopiaFissa()
{
    Recordset Righe =
        Db.OpenRecordset(u"SELECT DISTINCT Nominativo, Codice, ID*2 AS Doppio FROM Clienti ORDER BY ID"_s);
    Righe.FindFirst(u"Nominativo='rossi'"_s);
    QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"7"_s));
    Righe.FindFirst(u"Doppio>=4 AND Doppio<8"_s);
    QCOMPARE(Righe.Value(u"Doppio"_s), QVariant(4));
    Righe.FindLast(u"Codice=5"_s);
    QCOMPARE(Righe.Value(u"Doppio"_s), QVariant(2));
}

void TestRicerca::trovaTestoSenzaMaiuscole_data()
{
    QTest::addColumn<QString>("Criterio");
    QTest::addColumn<int>("Trovato");

    QTest::newRow("altre maiuscole") << u"Nominativo = \"rossi\""_s << 4;
    QTest::newRow("accento maiuscolo") << u"Nominativo = 'àLVARI'"_s << 3;
    QTest::newRow("senza accento") << u"Nominativo = 'alvari'"_s << 0;
    QTest::newRow("minore") << u"Nominativo < 'C'"_s << 2;
    QTest::newRow("contiene") << u"Nominativo Like \"*NCH*\""_s << 2;
    QTest::newRow("inizia con accento") << u"Nominativo Like 'à*'"_s << 3;
    QTest::newRow("non contiene") << u"Nominativo Not Like '*r*'"_s << 2;
    QTest::newRow("testo e numero") << u"Codice=5"_s << 1;
    QTest::newRow("esponente e numero") << u"Codice=100000"_s << 2;
    QTest::newRow("testo che non e numero") << u"Codice>100000"_s << 0;
    QTest::newRow("decimale") << u"1Med=2.5"_s << 2;
    QTest::newRow("negativo") << u"1Med<-0.5"_s << 3;
    QTest::newRow("data americana") << u"Nata=#04/02/1961#"_s << 2;
    QTest::newRow("data italiana") << u"Nata>DateValue('02/04/1961')"_s << 4;
    QTest::newRow("somiglia a una data") << u"Nata Like DateValue('02/04/1961')"_s << 2;
    QTest::newRow("manca") << u"Nata = Null"_s << 3;
    QTest::newRow("c'e") << u"Nata <> Null AND NOT Attivo=True"_s << 2;
    QTest::newRow("nullo") << u"Anni Is Null"_s << 4;
    QTest::newRow("non nullo") << u"Anni IS NOT NULL AND Attivo=False"_s << 2;
    QTest::newRow("AND prima di OR") << u"ID=4 OR ID=3 AND Attivo=False"_s << 4;
    QTest::newRow("parentesi") << u"(ID=4 OR ID=3) AND Attivo=True"_s << 3;
}

void TestRicerca::trovaTestoSenzaMaiuscole()
{
    QFETCH(QString, Criterio);
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.FindFirst(Criterio);
    QTEST(Righe.NoMatch() ? 0 : Righe.Value(u"ID"_s).toInt(), "Trovato");
}

void TestRicerca::trovaFraMolteRighe()
{
    Db.Execute(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<50000) "
               "INSERT INTO Clienti (ID, Nominativo) SELECT 50000-i+10, 'Nome '||i FROM n"_s);
    for (const QString& Sql : {u"Clienti"_s, u"SELECT * FROM Clienti ORDER BY Nominativo DESC"_s}) {
        Recordset Righe = Db.OpenRecordset(Sql);
        QCOMPARE(Righe.RecordCount(), 50004);
        Righe.FindFirst(u"ID=40000"_s);
        QCOMPARE(Righe.Value(u"Nominativo"_s), QVariant(u"Nome 10010"_s));
        Righe.FindFirst(u"Nominativo Like '*E 3'"_s);
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(50007));
        Righe.FindNext(u"Nominativo Like '*E 3'"_s);
        QVERIFY(Righe.NoMatch());
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(50007));
    }
}

void TestRicerca::cercaConIndice_data()
{
    QTest::addColumn<QString>("Operatore");
    QTest::addColumn<QDate>("Chiave");
    QTest::addColumn<int>("Trovato");

    QTest::newRow("uguale") << u"="_s << QDate(1961, 4, 2) << 2;
    QTest::newRow("uguale a nulla") << u"="_s << QDate(1961, 4, 3) << 0;
    QTest::newRow("da qui in su") << u">="_s << QDate(1961, 4, 2) << 2;
    QTest::newRow("oltre") << u">"_s << QDate(1961, 4, 2) << 4;
    QTest::newRow("ultima fino a qui") << u"<="_s << QDate(2000, 1, 1) << 2;
    QTest::newRow("ultima prima") << u"<"_s << QDate(1961, 4, 2) << 1;
    QTest::newRow("prima di tutte") << u"<="_s << QDate(1900, 1, 1) << 0;
}

void TestRicerca::cercaConIndice()
{
    QFETCH(QString, Operatore);
    QFETCH(QDate, Chiave);
    QFETCH(int, Trovato);
    Db.CreaIndice(u"Clienti"_s, u"Dal"_s, {u"Nata"_s});
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.ImpostaIndex(u"DAL"_s);
    Righe.Seek(Operatore, Chiave);
    QCOMPARE(Righe.NoMatch(), Trovato == 0);
    QCOMPARE(Righe.Eof(), Trovato == 0);
    if (Trovato > 0)
        QCOMPARE(Righe.Value(u"ID"_s), QVariant(Trovato));
}

void TestRicerca::cercaSuPiuColonne()
{
    Db.Execute(u"CREATE TABLE IndiciIstat (Anno SMALLINT, Mese SMALLINT, Indice DOUBLE REAL)"_s);
    Db.CreaIndice(u"IndiciIstat"_s, u"Indice"_s, {u"Anno"_s, u"Mese"_s});
    for (const auto& [Anno, Mese] : {std::pair{2012, 3}, {2011, 12}, {2012, 1}})
        Db.Execute(u"INSERT INTO IndiciIstat VALUES (?,?,?)"_s, {Anno, Mese, Anno + Mese / 100.0});
    Recordset Righe = Db.OpenRecordset(u"IndiciIstat"_s);
    Righe.ImpostaIndex(u"Indice"_s);
    QCOMPARE(Righe.Value(u"Indice"_s), QVariant(2011.12));  // the rows now come in the index's order
    Righe.MoveLast();
    QCOMPARE(Righe.Value(u"Indice"_s), QVariant(2012.03));
    Righe.Seek(u"="_s, QVariantList{2012, 1});
    QCOMPARE(Righe.Value(u"Indice"_s), QVariant(2012.01));
    Righe.MoveNext();
    QCOMPARE(Righe.Value(u"Mese"_s), QVariant(3));
    Righe.Seek(u"<"_s, QVariantList{2012, 1});
    QCOMPARE(Righe.Value(u"Mese"_s), QVariant(12));
    Righe.Seek(u"="_s, QVariantList{2012, 2});
    QVERIFY(Righe.NoMatch());
    QCOMPARE(NumeroErrore([&] { Righe.Seek(u"="_s, QVariantList{1, 2, 3}); }), 5);
}

void TestRicerca::cercaTestoSenzaMaiuscole()
{
    Db.CreaIndice(u"Clienti"_s, u"COMUNI2L"_s, {u"Nominativo"_s});
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.ImpostaIndex(u"comuni2l"_s);
    Righe.Seek(u">="_s, u"ro"_s);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(4));
    Righe.Seek(u"="_s, u"VERDI"_s);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
    Righe.Seek(u">="_s, QString(300, u'a'));  // longer than the column
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(2));
    Db.Execute(u"INSERT INTO Clienti (Nominativo) VALUES ('Zeno')"_s);
    Righe.Seek(u"="_s, u"zeno"_s);  // added since
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(5));
}

void TestRicerca::indiciSbagliati()
{
    Db.CreaIndice(u"Clienti"_s, u"Dal"_s, {u"Nata"_s});
    Db.Execute(u"CREATE TABLE Altra (Dal INTEGER)"_s);
    Db.CreaIndice(u"Altra"_s, u"Dal"_s, {u"Dal"_s});  // the same name in another table
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(NumeroErrore([&] { Righe.Seek(u"="_s, 1); }), 3019);
    QCOMPARE(NumeroErrore([&] { Righe.ImpostaIndex(u"Manca"_s); }), 3015);
    Righe.ImpostaIndex(u"Dal"_s);
    QCOMPARE(NumeroErrore([&] { Righe.Seek(u"<>"_s, 1); }), 5);
    QCOMPARE(NumeroErrore([&] { Righe.Seek(u"="_s, u"mai"_s); }), 3421);
    Recordset Query = Db.OpenRecordset(u"SELECT * FROM Clienti"_s);
    QCOMPARE(NumeroErrore([&] { Query.ImpostaIndex(u"Dal"_s); }), 3015);
}

void TestRicerca::segnalibriECloni()
{
    Recordset Righe = Db.OpenRecordset(u"SELECT * FROM Clienti ORDER BY \"1Med\""_s);
    Righe.MoveNext();
    const QVariant Segno = Righe.Bookmark();
    Recordset Clone = Righe.Clone();
    QCOMPARE(Clone.Value(u"ID"_s), QVariant(3));
    Righe.MoveLast();
    Clone.ImpostaBookmark(Segno);
    QCOMPARE(Clone.Value(u"ID"_s), QVariant(4));
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
    Righe.ImpostaBookmark(Segno);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(4));
    QCOMPARE(NumeroErrore([&] { Righe.ImpostaBookmark(99LL); }), 3159);
    QCOMPARE(NumeroErrore([&] { Righe.ImpostaBookmark(u"4"_s); }), 3159);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(4));
    Righe.MoveLast();
    Righe.MoveNext();
    QCOMPARE(NumeroErrore([&] { (void)Righe.Bookmark(); }), 3021);
}

#include "TestRicerca.moc"
