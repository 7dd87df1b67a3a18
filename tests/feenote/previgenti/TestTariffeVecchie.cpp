// Amounts as the older tariffs encoded them.
#include "feenote/nota_prova.h"
#include "platform/base/regionale.h"

#include "feenote/previgenti/modTariffeVecchie.h"

using namespace Qt::StringLiterals;

class TestTariffeVecchie : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void codifiche_data();
    void codifiche();
    void minimoDelCatalogo_data();
    void minimoDelCatalogo();
    void perScaglioni_data();
    void perScaglioni();
    void oltreTuttiGliScaglioni();
    void contestoDellaNota();
};
PROVA(TestTariffeVecchie);

void TestTariffeVecchie::codifiche_data()
{
    QTest::addColumn<double>("Valore");
    QTest::addColumn<double>("Causa");
    QTest::addColumn<double>("Minimo");
    QTest::addColumn<double>("Massimo");

    QTest::newRow("zero") << 0.0 << 5000.0 << 0.0 << 0.0;
    QTest::newRow("marca senza valore") << 999999999.0 << 5000.0 << 0.0 << 0.0;
    QTest::newRow("euro, pari") << 100.5 << 5000.0 << 100.0 << 100.0;
    QTest::newRow("un euro") << 1.0 << 5000.0 << 1.0 << 1.0;
    // 0.03 x 1050 = 31.5, to the even euro.
    QTest::newRow("quota della causa") << 0.03 << 1050.0 << 32.0 << 32.0;
    // 0.005 x 1001 = 5.005, to 5.01 and then 5; 0.05 x 1001 = 50.05.
    QTest::newRow("mezzo per cento, cinque per cento") << -999999995.0 << 1001.0 << 5.0 << 50.0;

    // Ladder A: 6069.75 and 18053.25 at its first value.
    QTest::newRow("scala A, inizio") << -999999990.0 << 516500.0 << 6070.0 << 18053.0;
    // 516500 x 0.0075 + 6069.75 = 9943.5, to the even euro 9944; 516500 x 0.03 + 18053.25 = 33548.25.
    QTest::newRow("scala A, primo limite compreso") << -999999990.0 << 1033000.0 << 9944.0 << 33548.0;
    // 1000 x 0.005 + 9943.5 = 9948.5; 1000 x 0.02 + 33548.25 = 33568.25.
    QTest::newRow("scala A, secondo gradino") << -999999990.0 << 1034000.0 << 9948.0 << 33568.0;
    // 1549300 x 0.005 + 9943.5 = 17690; x 0.02 + 33548.25 = 64534.25.
    QTest::newRow("scala A, secondo limite compreso") << -999999990.0 << 2582300.0 << 17690.0 << 64534.0;
    QTest::newRow("scala A, oltre") << -999999990.0 << 2586300.0 << 17700.0 << 64574.0;
    // Half of 9943.5 = 4971.75 and of 33548.25 = 16774.125, first to cents (16774.13).
    QTest::newRow("mezza scala A") << -999999991.0 << 1033000.0 << 4972.0 << 16774.0;

    // Ladder B over the fields 11Min = 1000 and 11Max = 4000.
    QTest::newRow("scala B, inizio") << -999999999.0 << 2582300.0 << 1000.0 << 4000.0;
    // 150 x 0.01 = 1.5 -> 2; 250 x 0.01 = 2.5 -> 2.
    QTest::newRow("scala B, arrotonda al pari") << -999999999.0 << 2582450.0 << 1002.0 << 4002.0;
    QTest::newRow("scala B, ancora al pari") << -999999999.0 << 2582550.0 << 1002.0 << 4002.0;
    QTest::newRow("scala B, primo limite") << -999999999.0 << 5164600.0 << 26823.0 << 29823.0;
    // 25823 + 10000 x 0.01.
    QTest::newRow("scala B, secondo gradino") << -999999999.0 << 5174600.0 << 26923.0 << 29923.0;
    // 25823 + 206583 + 100000 x 0.005.
    QTest::newRow("scala B, terzo gradino") << -999999999.0 << 25922900.0 << 233906.0 << 236906.0;
    QTest::newRow("trenta per cento di B") << -999999998.0 << 2582450.0 << 301.0 << 1201.0;
    QTest::newRow("quaranta per cento di B") << -999999997.0 << 2582450.0 << 401.0 << 1601.0;

    QTest::newRow("scala C, minimo fisso") << -888888888.0 << 3099.99 << 155.0 << 155.0;
    // Below 5167 the minimum stays fixed, while the maximum takes its rate from 3100 up.
    QTest::newRow("scala C, massimo dal limite") << -888888888.0 << 3100.0 << 155.0 << 155.0;
    QTest::newRow("scala C, massimo col tasso") << -888888888.0 << 5000.0 << 155.0 << 250.0;
    QTest::newRow("scala C, minimo dal limite") << -888888888.0 << 5167.0 << 155.0 << 258.0;
    QTest::newRow("scala C, 5200,00 col primo tasso") << -888888888.0 << 5200.0 << 156.0 << 260.0;
    // 4800 x 0.015 + 156 = 228; 4800 x 0.02 + 260 = 356.
    QTest::newRow("scala C, secondo gradino") << -888888888.0 << 10000.0 << 228.0 << 356.0;
    // 74100 x 0.005 + 466.5 = 837; 74100 x 0.01 + 674 = 1415.
    QTest::newRow("scala C, oltre") << -888888888.0 << 100000.0 << 837.0 << 1415.0;
}

namespace {

/// Field 11 of the ladders; the rates of the progressive sum: 3 % and 5 % of the first bracket, 1 % and 2 %
/// of the second, as the tables stored them.
ContestoVecchio Contesto(double Causa)
{
    ContestoVecchio Dati;
    Dati.ValoreCausa = Causa;
    Dati.ValoreCasella = Causa;
    Dati.ScaA = {1000.0, 5000.0};
    Dati.Campo = [](int Scaglione, const QString& Estremo) {
        const bool Minimo = Estremo == u"Min";
        switch (Scaglione) {
        case 1:
            return Minimo ? -0.03 : -0.05;
        case 2:
            return Minimo ? -0.01 : -0.02;
        case 11:
            return Minimo ? 1000.0 : 4000.0;
        default:
            return 0.0;
        }
    };
    return Dati;
}

}  // namespace

void TestTariffeVecchie::codifiche()
{
    QFETCH(double, Valore);
    QFETCH(double, Causa);
    QTEST(CalcolaMinMax(Valore, u"Min"_s, Contesto(Causa)), "Minimo");
    QTEST(CalcolaMinMax(Valore, u"Max"_s, Contesto(Causa)), "Massimo");
}

void TestTariffeVecchie::minimoDelCatalogo_data()
{
    QTest::addColumn<QString>("QtaOno");
    QTest::addColumn<double>("Atteso");
    QTest::newRow("nessuno") << QString() << 100.0;
    QTest::newRow("sotto l'importo") << u">50"_s << 100.0;
    QTest::newRow("sopra l'importo") << u">150"_s << 150.0;
    QTest::newRow("con i centesimi, poi al pari") << u">150,5"_s << 150.0;
    QTest::newRow("non e' un minimo") << u"H150"_s << 100.0;
    QTest::newRow("senza numero") << u">"_s << 100.0;
}

void TestTariffeVecchie::minimoDelCatalogo()
{
    QFETCH(QString, QtaOno);
    ContestoVecchio Dati = Contesto(5000);
    Dati.QtaOno = QtaOno;
    QTEST(CalcolaMinMax(100, u"Min"_s, Dati), "Atteso");
}

void TestTariffeVecchie::perScaglioni_data()
{
    QTest::addColumn<double>("Casella");
    QTest::addColumn<double>("Minimo");
    QTest::addColumn<double>("Massimo");
    QTest::newRow("zero") << 0.0 << 0.0 << 0.0;
    QTest::newRow("nel primo") << 500.0 << 15.0 << 25.0;
    QTest::newRow("limite compreso") << 1000.0 << 30.0 << 50.0;
    // 1000 at the first rate, 2000 at the second.
    QTest::newRow("nel secondo") << 3000.0 << 50.0 << 90.0;
}

void TestTariffeVecchie::perScaglioni()
{
    QFETCH(double, Casella);
    // Whatever the rate written in the cell: it takes no part.
    for (const double Perc : {1.0, 77.0}) {
        QTEST(Round(CalcolaMinMaxDaPerc(Perc, u"Min"_s, Contesto(Casella)), 6), "Minimo");
        QTEST(Round(CalcolaMinMaxDaPerc(Perc, u"Max"_s, Contesto(Casella)), 6), "Massimo");
    }
    QTEST(CalcolaMinMax(-5, u"Max"_s, Contesto(Casella)), "Massimo");
}

void TestTariffeVecchie::oltreTuttiGliScaglioni()
{
    ContestoVecchio Dati = Contesto(9000);
    QCOMPARE(NumeroErrore([&] { (void)CalcolaMinMaxDaPerc(1, u"Min"_s, Dati); }), 9);
    Dati.ScaA.back() = 9000;  // the twenty-first place is still one
    QCOMPARE(NumeroErrore([&] { (void)CalcolaMinMaxDaPerc(1, u"Min"_s, Dati); }), 0);
}

void TestTariffeVecchie::contestoDellaNota()
{
    const Studio Ufficio;
    Registratore Messaggi;
    Parcella Nota = NotaCivile();
    Nota.txtImporto.Testo = u"40.000,00"_s;
    Catalogo Voci;
    LoadOnoDir(Nota, Voci);
    QVERIFY(VaiAVoce(Voci, 2));
    const ContestoVecchio Dati = ContestoDi(Nota, Voci.datOno);
    QCOMPARE(Dati.ValoreCausa, 30000.0);
    QCOMPARE(Dati.ValoreCasella, 40000.0);
    QCOMPARE(Dati.ScaA[2], 50000.0);
    QCOMPARE(Dati.ScaA[20], 0.0);
    QCOMPARE(Dati.Campo(3, u"Max"_s), 960.0);
    // The eleventh triple belongs to older tables alone.
    QCOMPARE(NumeroErrore([&] { (void)CalcolaMinMax(-999999999, u"Min"_s, Dati); }), 3265);
}

#include "TestTariffeVecchie.moc"
