// The texts of an archive's rows, as the filter of its browser reads them.
#include "addressbook/testirubrica.h"
#include "supporto/prova.h"

using namespace Qt::StringLiterals;

class TestTestiRubrica : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void iTestiSonoQuelliMostrati_data();
    void iTestiSonoQuelliMostrati();
    void siLeggonoAPorzioni();
    void siRileggonoDopoUnaScrittura();
    void senzaArchivioNessuno();

private:
    [[nodiscard]] TestiRubrica Letti() const
    {
        TestiRubrica Testi;
        const Recordset Righe = Db.OpenRecordset(SqlRubrica(u"clienti"_s));
        Testi.Imposta(Db, Righe, ColonneRubrica(Righe.Campi()));
        return Testi;
    }
    Database Db;
};
PROVA(TestTestiRubrica);

void TestTestiRubrica::init()
{
    Db = CreateDatabase(NuovaCartella() + u"studio.mdb"_s);
    Db.CreaTabella(u"clienti"_s, {{u"ID"_s, TipoCampo::Lungo, 0, {}, true},
                                  {u"Nominativo"_s, TipoCampo::Testo, 60, {}, false},
                                  {u"Nata"_s, TipoCampo::Data, 0, {}, false},
                                  {u"Sentita"_s, TipoCampo::Data, 0, u"F=mm-yyyy"_s, false},
                                  {u"Socio"_s, TipoCampo::Booleano, 0, {}, false},
                                  {u"Credito"_s, TipoCampo::Valuta, 0, u"F=0.00"_s, false},
                                  {u"Punti"_s, TipoCampo::Lungo, 0, u"F=0000"_s, false},
                                  {u"Note"_s, TipoCampo::Memo, 0, {}, false}});
    const QString Sql =
        u"INSERT INTO clienti (Nominativo, Nata, Sentita, Socio, Credito, Punti, Note) VALUES "
        "(?,?,?,?,?,?,?)"_s;
    Db.Execute(Sql, {u"Rossi"_s, QDate(1950, 3, 1), QDate(2011, 12, 7), true, 12.5, 42, u"prima\nseconda"_s});
    Db.Execute(Sql, {u"Verdi"_s, QDateTime({1961, 4, 2}, {10, 30}), {}, false, {}, {}, {}});
}

void TestTestiRubrica::iTestiSonoQuelliMostrati_data()
{
    QTest::addColumn<QString>("Testo");
    QTest::addColumn<QList<int>>("Attese");
    const auto Riga = [](const char* Nome, const QString& Testo, const QList<int>& Attese) {
        QTest::newRow(Nome) << Testo << Attese;
    };
    Riga("una data", u"01/03/1950"_s, {1});
    Riga("non com'è nel file", u"1950-03-01"_s, {});
    Riga("una data con l'ora", u"02/04/1961"_s, {2});
    Riga("col suo formato", u"12-2011"_s, {1});
    Riga("un sì", u"si"_s, {1});
    Riga("un importo", u"12,50"_s, {1});
    Riga("un numero col formato", u"0042"_s, {1});
    Riga("una nota di due righe", u"prima seconda"_s, {1});
    Riga("la chiave", u"2 verdi"_s, {2});
    Riga("niente", QString(), {1, 2});
}

void TestTestiRubrica::iTestiSonoQuelliMostrati()
{
    QFETCH(QString, Testo);
    TestiRubrica Testi = Letti();
    QList<int> Trovate;
    for (const qint64 Chiave : Testi.Cerca(Filtro(Testo)))
        Trovate += int(Chiave);
    QTEST(Trovate, "Attese");
}

void TestTestiRubrica::siLeggonoAPorzioni()
{
    Db.Execute(
        u"INSERT INTO clienti (Nominativo) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n "
        "WHERE i<9000) SELECT 'Nome ' || i FROM n"_s);
    TestiRubrica Testi = Letti();
    QVERIFY(!Testi.Pronti());
    int Porzioni = 1;
    while (!Testi.Leggi())
        ++Porzioni;
    QVERIFY(Porzioni > 1);
    QVERIFY(Testi.Pronti());
    QCOMPARE(Testi.Cerca(Filtro(u"nome"_s)).size(), std::size_t(9000));
    // The name of the one is the key of the other.
    QCOMPARE(Testi.Cerca(Filtro(u"nome 8999"_s)), (std::vector<qint64>{8999, 9001}));
}

void TestTestiRubrica::siRileggonoDopoUnaScrittura()
{
    TestiRubrica Testi = Letti();
    QCOMPARE(Testi.Cerca(Filtro(u"rossi"_s)).size(), std::size_t(1));
    Db.Execute(u"UPDATE clienti SET Nominativo='Bianchi' WHERE ID=1"_s);
    QVERIFY(!Testi.Pronti());
    QVERIFY(Testi.Cerca(Filtro(u"rossi"_s)).empty());
    QCOMPARE(Testi.Cerca(Filtro(u"bianchi"_s)), (std::vector<qint64>{1}));
}

void TestTestiRubrica::senzaArchivioNessuno()
{
    TestiRubrica Testi;
    Testi.Imposta({}, {}, {});
    QVERIFY(Testi.Leggi());
    QVERIFY(Testi.Cerca(Filtro(u"x"_s)).empty());
}

#include "TestTestiRubrica.moc"
