#include "supporto/prova.h"

#include "platform/database/clienti.h"
#include "platform/database/database.h"
#include "supporto/guasti.h"

#include <filesystem>

using namespace Qt::StringLiterals;

class TestRecordset : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Db = ArchivioClienti(); }

    void nessunaRiga();
    void mosseOltreLeEstremita();
    void selezioniMostrateRigaPerRiga_data();
    void selezioniMostrateRigaPerRiga();
    void ordineConChiaveInCoda();
    void copiaFissaConIntestazioni();
    void valoriPerTipo();
    void valoriDiFormaEstranea();
    void colonneSconosciute();
    void nuovaRigaDiventaCorrente();
    void modificaScriveSoloIlCambiato();
    void annullaNonScrive();
    void nuovaChiaveDelContatore();
    void valoriConvertiti_data();
    void valoriConvertiti();
    void valoriRifiutati_data();
    void valoriRifiutati();
    void testoLungoQuantoIlCampo();
    void eliminaEVaAvanti();
    void rigaSparitaAltrove();
    void rigaCambiataAltrove();
    void solaLetturaNonScrive();
    void chiaveDoppia();
    void copieCondividonoIlCursore();
    void nonTieneBlocchi();

private:
    Database Db;
};

PROVA(TestRecordset);

namespace {

QStringList Nomi(Recordset Righe, const QString& Nome)
{
    QStringList Letti;
    for (Righe.MoveFirst(); !Righe.Eof(); Righe.MoveNext())
        Letti << Righe.Value(Nome).toString();
    return Letti;
}

}  // namespace

void TestRecordset::nessunaRiga()
{
    Recordset Chiuso;
    QVERIFY(!Chiuso.Aperto());
    QVERIFY(Chiuso.Eof() && Chiuso.Bof());
    Chiuso.MoveNext();
    QCOMPARE(NumeroErrore([&] { (void)Chiuso.Value(u"ID"_s); }), 3021);

    Recordset Vuoto = Db.OpenRecordset(u"SELECT * FROM Clienti WHERE ID>99"_s);
    QVERIFY(Vuoto.Aperto() && Vuoto.Eof() && Vuoto.Bof());
    Vuoto.MoveFirst();
    Vuoto.MoveLast();
    Vuoto.MovePrevious();
    QVERIFY(Vuoto.Eof() && Vuoto.Bof());
    QCOMPARE(NumeroErrore([&] { (void)Vuoto.Value(u"ID"_s); }), 3021);
    Vuoto.FindFirst(u"ID=1"_s);
    QVERIFY(Vuoto.NoMatch());
}

void TestRecordset::mosseOltreLeEstremita()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(Righe.RecordCount(), 4);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
    Righe.MovePrevious();
    Righe.MovePrevious();
    QVERIFY(Righe.Bof());
    QCOMPARE(NumeroErrore([&] { (void)Righe.Value(u"ID"_s); }), 3021);
    Righe.MoveNext();
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
    Righe.MoveLast();
    Righe.MoveNext();
    Righe.MoveNext();
    QVERIFY(Righe.Eof());
    Righe.MovePrevious();
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(4));
}

void TestRecordset::selezioniMostrateRigaPerRiga_data()
{
    QTest::addColumn<QString>("Sql");
    QTest::addColumn<bool>("Modificabile");
    QTest::addColumn<int>("Righe");

    QTest::newRow("tabella") << u"clienti"_s << true << 4;
    QTest::newRow("tutto") << u"SELECT * FROM Clienti"_s << true << 4;
    QTest::newRow("minuscole e punto e virgola") << u" select * from [Clienti] ; "_s << true << 4;
    QTest::newRow("colonne e condizione")
        << u"SELECT ID,\"1Med\" FROM Clienti WHERE Codice='7' OR ID<2"_s << true << 2;
    QTest::newRow("ordinate") << u"SELECT ID FROM \"Clienti\" ORDER BY Nominativo DESC"_s << true << 4;
    QTest::newRow("parole nel testo") << u"SELECT * FROM Clienti WHERE Codice<>'GROUP BY; --'"_s << true << 4;
    QTest::newRow("valori diversi") << u"SELECT DISTINCT Anni FROM Clienti WHERE Anni>0"_s << false << 2;
    QTest::newRow("gruppi") << u"SELECT Anni, count(*) AS n FROM Clienti GROUP BY Anni"_s << false << 3;
    QTest::newRow("somma") << u"SELECT sum(Anni) FROM Clienti"_s << false << 1;
    QTest::newRow("due tabelle") << u"SELECT a.ID FROM Clienti a, Clienti b"_s << false << 16;
    QTest::newRow("unione") << u"SELECT ID FROM Clienti UNION SELECT Anni FROM Clienti WHERE Anni>0"_s
                            << false << 4;
    QTest::newRow("ordine per posto") << u"SELECT Anni FROM Clienti ORDER BY 1"_s << false << 4;
    QTest::newRow("espressione") << u"SELECT ID+1 FROM Clienti"_s << false << 4;
    QTest::newRow("commento") << u"SELECT * FROM Clienti -- tutti"_s << false << 4;
    QTest::newRow("limite") << u"SELECT * FROM Clienti LIMIT 2"_s << false << 2;
}

void TestRecordset::selezioniMostrateRigaPerRiga()
{
    QFETCH(QString, Sql);
    QFETCH(bool, Modificabile);
    Recordset Righe = Db.OpenRecordset(Sql);
    QTEST(Righe.RecordCount(), "Righe");
    QCOMPARE(NumeroErrore([&] { Righe.Edit(); }), Modificabile ? 0 : 3027);
}

void TestRecordset::ordineConChiaveInCoda()
{
    // Rows alike keep the order in which they were added; rows without ORDER BY too, index or not.
    Db.CreaIndice(u"Clienti"_s, u"PerAnni"_s, {u"Anni"_s});
    QCOMPARE(Nomi(Db.OpenRecordset(u"SELECT * FROM Clienti ORDER BY Anni DESC"_s), u"ID"_s),
             QStringList({u"1"_s, u"3"_s, u"2"_s, u"4"_s}));
    QCOMPARE(Nomi(Db.OpenRecordset(u"SELECT ID FROM Clienti WHERE Anni>0"_s), u"ID"_s),
             QStringList({u"1"_s, u"2"_s, u"3"_s}));
    QCOMPARE(Nomi(Db.OpenRecordset(u"SELECT * FROM Clienti ORDER BY Nominativo COLLATE SenzaMaiuscole"_s),
                  u"ID"_s),
             QStringList({u"2"_s, u"4"_s, u"1"_s, u"3"_s}));
}

void TestRecordset::copiaFissaConIntestazioni()
{
    Recordset Righe =
        Db.OpenRecordset(u"SELECT a.Nominativo, a.Nata, b.ID AS Altro, count(*) AS Quanti, NULL AS Niente "
                         "FROM Clienti a JOIN Clienti b ON a.ID=b.ID WHERE a.ID=1"_s);
    QCOMPARE(Righe.Value(u"nominativo"_s), QVariant(u"Verdi"_s));
    QCOMPARE(Righe.Value(u"Nata"_s), QVariant(QDate(1950, 3, 1)));
    QCOMPARE(Righe.Value(u"Altro"_s), QVariant(1));
    QCOMPARE(Righe.Value(u"Quanti"_s), QVariant(1));
    QVERIFY(!Righe.Value(u"Niente"_s).isValid());
    QCOMPARE(Righe.Campi().at(0).Type, TipoCampo::Testo);
    QCOMPARE(Righe.Campi().at(0).Size, 12);
    Db.Execute(u"DELETE FROM Clienti"_s);
    QCOMPARE(Righe.Value(u"Nominativo"_s), QVariant(u"Verdi"_s));
}

void TestRecordset::valoriPerTipo()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(Righe.Value(u"1MED"_s), QVariant(10.0));
    QCOMPARE(Righe.Value(u"1Med"_s).typeId(), int(QMetaType::Double));
    QCOMPARE(Righe.Value(u"Nata"_s), QVariant(QDate(1950, 3, 1)));
    QCOMPARE(Righe.Value(u"Attivo"_s), QVariant(true));
    QCOMPARE(Righe.Value(u"Anni"_s).typeId(), int(QMetaType::Int));
    QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"05"_s));
    Righe.MoveLast();
    QVERIFY(!Righe.Value(u"Anni"_s).isValid());
    QCOMPARE(Righe.Value(u"Anni"_s, 8), QVariant(8));
    QCOMPARE(Righe.Value(u"Attivo"_s), QVariant(false));

    Db.Execute(u"UPDATE Clienti SET Nata=? WHERE ID=4"_s, {QDateTime(QDate(2020, 1, 5), QTime(10, 30, 15))});
    QCOMPARE(Righe.Value(u"Nata"_s), QVariant(QDateTime(QDate(2020, 1, 5), QTime(10, 30, 15))));
    Db.Execute(u"UPDATE Clienti SET Nata=? WHERE ID=4"_s, {QDateTime(QDate(2020, 1, 5), QTime(0, 0))});
    QCOMPARE(Righe.Value(u"Nata"_s), QVariant(QDate(2020, 1, 5)));
}

void TestRecordset::valoriDiFormaEstranea()
{
    Db.Execute(u"UPDATE Clienti SET Nominativo=CAST(X'41FF42' AS TEXT), Codice=X'C3A800', \"1Med\"='molto', "
               "Nata='ieri', Attivo=17, Anni=2.5 WHERE ID=1"_s);
    Recordset Riga = Db.OpenRecordset(u"SELECT * FROM Clienti WHERE ID=1"_s);
    QCOMPARE(Riga.Value(u"Nominativo"_s), QVariant(u"A\uFFFDB"_s));
    QCOMPARE(Riga.Value(u"Codice"_s), QVariant(QString(u"è\0"_s)));
    QCOMPARE(Riga.Value(u"1Med"_s), QVariant(u"molto"_s));
    QVERIFY(!Riga.Value(u"Nata"_s).isValid());
    QCOMPARE(Riga.Value(u"Attivo"_s), QVariant(true));
    QCOMPARE(Riga.Value(u"Anni"_s), QVariant(2.5));
    Db.Execute(u"UPDATE Clienti SET Anni=9999999999, Nata='2020-13-45' WHERE ID=1"_s);
    QCOMPARE(Riga.Value(u"Anni"_s), QVariant(9999999999.0));
    QVERIFY(!Riga.Value(u"Nata"_s).isValid());
}

void TestRecordset::colonneSconosciute()
{
    Recordset Righe = Db.OpenRecordset(u"SELECT ID, Codice FROM Clienti"_s);
    QCOMPARE(Righe.Campi().size(), 2);
    QCOMPARE(NumeroErrore([&] { (void)Righe.Value(u"Nominativo"_s); }), 3265);
    Righe.Edit();
    QCOMPARE(NumeroErrore([&] { Righe.ImpostaValue(u"Manca"_s, 1); }), 3265);
    QCOMPARE(NumeroErrore([&] { Righe.FindFirst(u"Manca=1"_s); }), 3070);
    QCOMPARE(NumeroErrore([&] { (void)Db.OpenRecordset(u"SELECT Manca FROM Clienti"_s); }), 3061);
    QCOMPARE(NumeroErrore([&] { (void)Db.OpenRecordset(u"SELECT * FROM Manca"_s); }), 3078);
    QCOMPARE(NumeroErrore([&] { (void)Db.OpenRecordset(u"Manca"_s); }), 3078);
    QCOMPARE(NumeroErrore([&] { (void)Db.OpenRecordset(u"DELETE FROM Clienti"_s); }), 3078);
}

void TestRecordset::nuovaRigaDiventaCorrente()
{
    Recordset Righe = Db.OpenRecordset(u"SELECT * FROM Clienti ORDER BY Nominativo"_s);
    Righe.AddNew();
    Righe.ImpostaValue(u"Nominativo"_s, u"Neri"_s);
    QCOMPARE(Righe.Value(u"Nominativo"_s), QVariant(u"Neri"_s));
    QVERIFY(!Righe.Value(u"Codice"_s).isValid());
    Righe.Update();
    QCOMPARE(Righe.RecordCount(), 5);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(5));
    QCOMPARE(Righe.Value(u"Nominativo"_s), QVariant(u"Neri"_s));
    QCOMPARE(Righe.Value(u"Attivo"_s), QVariant(false));  // a truth value that nobody set
    Righe.FindFirst(u"ID=5"_s);
    QVERIFY(!Righe.NoMatch());
    QCOMPARE(Db.OpenRecordset(u"Clienti"_s).RecordCount(), 5);
}

void TestRecordset::modificaScriveSoloIlCambiato()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(NumeroErrore([&] { Righe.ImpostaValue(u"Codice"_s, u"x"_s); }), 3020);
    QCOMPARE(NumeroErrore([&] { Righe.Update(); }), 3020);
    Righe.Edit();
    Righe.ImpostaValue(u"Codice"_s, u"nuovo"_s);
    Db.Execute(u"UPDATE Clienti SET Anni=77 WHERE ID=1"_s);
    Righe.Update();
    QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"nuovo"_s));
    QCOMPARE(Righe.Value(u"Anni"_s), QVariant(77));
    Righe.Edit();
    Righe.ImpostaValue(u"Codice"_s, QVariant());
    Righe.Update();
    QVERIFY(!Righe.Value(u"Codice"_s).isValid());
}

void TestRecordset::annullaNonScrive()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.Edit();
    Righe.ImpostaValue(u"Codice"_s, u"nuovo"_s);
    Righe.CancelUpdate();
    QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"05"_s));
    Righe.AddNew();
    Righe.ImpostaValue(u"Codice"_s, u"nuovo"_s);
    Righe.MoveNext();  // a move drops it too
    QCOMPARE(NumeroErrore([&] { Righe.Update(); }), 3020);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(2));
    QCOMPARE(Db.OpenRecordset(u"SELECT * FROM Clienti WHERE Codice='nuovo'"_s).RecordCount(), 0);
}

void TestRecordset::nuovaChiaveDelContatore()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.Edit();
    Righe.ImpostaValue(u"ID"_s, 90);
    Righe.Update();
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(90));
    QCOMPARE(Righe.Value(u"Nominativo"_s), QVariant(u"Verdi"_s));
    Righe.FindFirst(u"ID=3"_s);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(3));
    Righe.MoveFirst();
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(90));
}

void TestRecordset::valoriConvertiti_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QVariant>("Dato");
    QTest::addColumn<QVariant>("Letto");

    QTest::newRow("numero in un testo") << u"Codice"_s << QVariant(12.7) << QVariant(u"12,7"_s);
    QTest::newRow("intero in un testo") << u"Codice"_s << QVariant(12) << QVariant(u"12"_s);
    QTest::newRow("data in un testo")
        << u"Codice"_s << QVariant(QDate(2012, 7, 20)) << QVariant(u"20/07/2012"_s);
    QTest::newRow("testo in un numero") << u"1Med"_s << QVariant(u"1.234,50"_s) << QVariant(1234.5);
    QTest::newRow("singolo senza code") << u"1Med"_s << QVariant(12.7F) << QVariant(12.7);
    QTest::newRow("vero in un numero") << u"1Med"_s << QVariant(true) << QVariant(-1.0);
    QTest::newRow("pari al piu vicino") << u"Anni"_s << QVariant(2.5) << QVariant(2);
    QTest::newRow("oltre i 16 bit") << u"Anni"_s << QVariant(70000) << QVariant(70000);
    QTest::newRow("testo in una data")
        << u"Nata"_s << QVariant(u"20/07/2012"_s) << QVariant(QDate(2012, 7, 20));
    QTest::newRow("data non valida") << u"Nata"_s << QVariant(QDate()) << QVariant();
    QTest::newRow("numero in un logico") << u"Attivo"_s << QVariant(2) << QVariant(true);
    QTest::newRow("testo vuoto") << u"Codice"_s << QVariant(QString()) << QVariant(u""_s);
    QTest::newRow("Null") << u"1Med"_s << QVariant() << QVariant();
}

void TestRecordset::valoriConvertiti()
{
    QFETCH(QString, Nome);
    QFETCH(QVariant, Dato);
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.Edit();
    Righe.ImpostaValue(Nome, Dato);
    Righe.Update();
    QTEST(Righe.Value(Nome), "Letto");
}

void TestRecordset::valoriRifiutati_data()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QVariant>("Dato");
    QTest::addColumn<int>("Numero");

    QTest::newRow("testo troppo lungo") << u"Nominativo"_s << QVariant(QString(13, u'x')) << 3163;
    QTest::newRow("parola in un numero") << u"1Med"_s << QVariant(u"dieci"_s) << 3421;
    QTest::newRow("punto in un numero") << u"1Med"_s << QVariant(u"12.5"_s) << 3421;
    QTest::newRow("non numero") << u"1Med"_s << QVariant(qQNaN()) << 3421;
    QTest::newRow("infinito") << u"1Med"_s << QVariant(qInf()) << 3421;
    QTest::newRow("infinito in un testo") << u"Codice"_s << QVariant(qInf()) << 3421;
    QTest::newRow("non numero in un intero") << u"Anni"_s << QVariant(qQNaN()) << 3421;
    QTest::newRow("oltre i 32 bit") << u"Anni"_s << QVariant(3e9) << 3421;
    QTest::newRow("data in un numero") << u"1Med"_s << QVariant(QDate(2012, 7, 20)) << 3421;
    QTest::newRow("parola in una data") << u"Nata"_s << QVariant(u"ieri"_s) << 3421;
    QTest::newRow("numero in una data") << u"Nata"_s << QVariant(41000) << 3421;
}

void TestRecordset::valoriRifiutati()
{
    QFETCH(QString, Nome);
    QFETCH(QVariant, Dato);
    QFETCH(int, Numero);
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.Edit();
    const ErroreVisto E = ErroreDi([&] { Righe.ImpostaValue(Nome, Dato); });
    QCOMPARE(E.Numero, Numero);
    QVERIFY2(E.Descrizione.endsWith(Nome), qPrintable(E.Descrizione));
}

void TestRecordset::testoLungoQuantoIlCampo()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.Edit();
    Righe.ImpostaValue(u"Nominativo"_s, QString(12, u'à'));
    Righe.Update();
    QCOMPARE(Righe.Value(u"Nominativo"_s), QVariant(QString(12, u'à')));
}

void TestRecordset::eliminaEVaAvanti()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.MoveNext();
    Righe.Delete();
    QCOMPARE(Righe.RecordCount(), 3);
    QVERIFY(!Righe.Eof());
    QCOMPARE(NumeroErrore([&] { (void)Righe.Value(u"ID"_s); }), 3167);
    QCOMPARE(NumeroErrore([&] { Righe.Delete(); }), 3167);
    Righe.MoveNext();
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(3));
    Righe.Delete();
    Righe.MovePrevious();
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
    Righe.MoveLast();
    Righe.Delete();
    Righe.MoveNext();
    QVERIFY(Righe.Eof());
    Righe.MoveFirst();
    Righe.Delete();
    QVERIFY(Righe.Eof() && Righe.Bof());
    QCOMPARE(Db.OpenRecordset(u"Clienti"_s).RecordCount(), 0);
}

void TestRecordset::rigaSparitaAltrove()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Recordset Altre = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
    Altre.Delete();
    QCOMPARE(NumeroErrore([&] { (void)Righe.Value(u"ID"_s); }), 3167);
    QCOMPARE(NumeroErrore([&] { Righe.Edit(); }), 3167);
    QCOMPARE(NumeroErrore([&] { Righe.Delete(); }), 3167);
    Righe.MoveNext();
    Righe.Edit();
    Righe.ImpostaValue(u"Codice"_s, u"x"_s);
    Db.Execute(u"DELETE FROM Clienti WHERE ID=2"_s);
    QCOMPARE(NumeroErrore([&] { Righe.Update(); }), 3167);
}

void TestRecordset::rigaCambiataAltrove()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"05"_s));
    {
        const Transazione Annullata(Db);
        Db.Execute(u"UPDATE Clienti SET Codice='z'"_s);
        QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"z"_s));
    }
    QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"05"_s));
}

void TestRecordset::solaLetturaNonScrive()
{
    Recordset Righe = OpenDatabase(Db.Percorso(), true).OpenRecordset(u"Clienti"_s);
    QCOMPARE(NumeroErrore([&] { Righe.AddNew(); }), 3027);
    QCOMPARE(NumeroErrore([&] { Righe.Edit(); }), 3027);
    QCOMPARE(NumeroErrore([&] { Righe.Delete(); }), 3027);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
}

void TestRecordset::chiaveDoppia()
{
    Db.CreaIndice(u"Clienti"_s, u"Unico"_s, {u"Codice"_s}, true);
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Righe.AddNew();
    Righe.ImpostaValue(u"Codice"_s, u"05"_s);
    QCOMPARE(NumeroErrore([&] { Righe.Update(); }), 3022);
    Righe.ImpostaValue(u"Codice"_s, u"5"_s);  // the row being added is still there to be mended
    Righe.Update();
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(5));
}

void TestRecordset::copieCondividonoIlCursore()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    Recordset Copia = Righe;
    Copia.MoveLast();
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(4));
    Copia.Close();
    QVERIFY(!Righe.Aperto());
    QVERIFY(Righe.Eof());
}

void TestRecordset::nonTieneBlocchi()
{
    Recordset Righe = Db.OpenRecordset(u"Clienti"_s);
    QCOMPARE(Righe.Value(u"ID"_s), QVariant(1));
    Righe.FindFirst(u"Anni>0"_s);
    // Another name of the same file gets a connection of its own, as another program would.
    const QString Altro = Db.Percorso() + u"2"_s;
    std::filesystem::create_hard_link(Db.Percorso().toStdString(), Altro.toStdString());
    OpenDatabase(Altro).Execute(u"UPDATE Clienti SET Codice='altrui' WHERE ID=2"_s);
    Righe.MoveNext();
    QCOMPARE(Righe.Value(u"Codice"_s), QVariant(u"altrui"_s));
}

#include "TestRecordset.moc"
