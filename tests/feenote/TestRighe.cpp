// Where a new line goes, and the sum of a column.
#include "nota_prova.h"

using namespace Qt::StringLiterals;

class TestRighe : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void posto_data();
    void posto();
    void tabellaVuota();
    void somma_data();
    void somma();
};
PROVA(TestRighe);

void TestRighe::posto_data()
{
    QTest::addColumn<bool>("Ultima");
    QTest::addColumn<int>("Corrente");  // -9: none
    QTest::addColumn<int>("Atteso");
    QTest::newRow("in coda") << true << 1 << 3;
    QTest::newRow("alla riga corrente") << false << 1 << 1;
    QTest::newRow("-1 vale 0") << false << -1 << 0;
    QTest::newRow("senza riga corrente") << false << -9 << 3;
    QTest::newRow("oltre la fine") << false << 50 << 3;
}

void TestRighe::posto()
{
    QFETCH(bool, Ultima);
    QFETCH(int, Corrente);
    Parcella Nota;
    for (int Riga = 0; Riga < 3; ++Riga) {
        Nota.xOnorari.AggiungiRiga();
        Nota.xDiritti.AggiungiRiga();
    }
    const std::optional<int> Riga = Corrente == -9 ? std::nullopt : std::optional<int>(Corrente);
    Nota.InsUltimaOno = Ultima;
    Nota.InsUltimaDir = !Ultima;
    QTEST(RowIns(Nota, TipoRiga::Onorari, Riga), "Atteso");
    Nota.InsUltimaOno = !Ultima;
    Nota.InsUltimaDir = Ultima;
    QTEST(RowIns(Nota, TipoRiga::Diritti, Riga), "Atteso");
}

void TestRighe::tabellaVuota()
{
    Parcella Nota;
    Nota.InsUltimaOno = false;
    QCOMPARE(Nota.xOnorari.UpperBound(1), -1);
    QCOMPARE(RowIns(Nota, TipoRiga::Onorari, 0), 0);
    QCOMPARE(RowIns(Nota, TipoRiga::Onorari, std::nullopt), 0);
    QCOMPARE(SommaColonna(Nota.xOnorari, OnoImporto), 0.0);
}

void TestRighe::somma_data()
{
    QTest::addColumn<QVariantList>("Celle");
    QTest::addColumn<double>("Somma");
    QTest::newRow("numeri") << QVariantList{1.5, 2, -0.25} << 3.25;
    QTest::newRow("testo italiano") << QVariantList{u"1.234,50"_s, 0.5} << 1235.0;
    QTest::newRow("vuote e Null") << QVariantList{QVariant(), QString(), 7.0} << 7.0;
    QTest::newRow("testo incollato") << QVariantList{u"gratis"_s, u"12.5"_s, 7.0} << 7.0;
}

void TestRighe::somma()
{
    QFETCH(QVariantList, Celle);
    Parcella Nota;
    for (const QVariant& Cella : Celle)
        RigaSpesa(Nota, Cella, {});
    QTEST(SommaColonna(Nota.xDiritti, DirImponibile), "Somma");
    QCOMPARE(SommaColonna(Nota.xDiritti, DirEsente), 0.0);
}

#include "TestRighe.moc"
