// Where the sheets of a preview stand.
#include "platform/preview/disposizionefogli.h"
#include "supporto/prova.h"

#include <QTest>

class TestDisposizioneFogli : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void centoPerCentoEAMisuraVera();
    void fogliStrettiNelMezzo();
    void paginaSottoUnAltezza_data();
    void paginaSottoUnAltezza();
    void piuVisibile_data();
    void piuVisibile();
    void puntiAndataERitorno();
    void percentoAdatto();
};
PROVA(TestDisposizioneFogli);

namespace {

constexpr QSizeF A4(210.0, 297.0);

/// Three sheets of 100 x 200 pixels: they stand at 16, 228 and 440.
DisposizioneFogli Tre()
{
    const double Mm = 25.4 / 96.0;
    return {QSizeF(100 * Mm, 200 * Mm), 3, 100.0, QSize(300, 300)};
}

}  // namespace

void TestDisposizioneFogli::centoPerCentoEAMisuraVera()
{
    const DisposizioneFogli Posti(A4, 1, 100.0, {1000, 1000});
    QCOMPARE(Posti.Foglio(1).size(), QSize(794, 1123));
    QCOMPARE(Posti.Misura(), QSize(794 + 32, 1123 + 32));
}

void TestDisposizioneFogli::fogliStrettiNelMezzo()
{
    QCOMPARE(Tre().Foglio(1).topLeft(), QPoint(100, 16));
    QCOMPARE(Tre().Foglio(3).topLeft(), QPoint(100, 440));
    const DisposizioneFogli Larghi(A4, 1, 400.0, {300, 300});
    QCOMPARE(Larghi.Foglio(1).left(), DisposizioneFogli::Margine);
}

void TestDisposizioneFogli::paginaSottoUnAltezza_data()
{
    QTest::addColumn<int>("Y");
    QTest::addColumn<int>("Pagina");

    QTest::newRow("sopra tutto") << -50 << 1;
    QTest::newRow("ultimo punto della prima") << 215 << 1;
    QTest::newRow("luce tra la prima e la seconda") << 216 << 2;
    QTest::newRow("ultimo punto della seconda") << 427 << 2;
    QTest::newRow("terza") << 440 << 3;
    QTest::newRow("sotto tutto") << 9000 << 3;
}

void TestDisposizioneFogli::paginaSottoUnAltezza()
{
    QFETCH(int, Y);
    QTEST(Tre().PaginaA(Y), "Pagina");
}

void TestDisposizioneFogli::piuVisibile_data()
{
    QTest::addColumn<int>("Da");
    QTest::addColumn<int>("A");
    QTest::addColumn<int>("Pagina");

    QTest::newRow("inizio") << 0 << 300 << 1;
    QTest::newRow("poco piu della prima") << 120 << 320 << 1;
    QTest::newRow("poco piu della seconda") << 130 << 330 << 2;
    QTest::newRow("due intere: la prima di loro") << 0 << 450 << 1;
    QTest::newRow("fondo") << 372 << 672 << 3;
}

void TestDisposizioneFogli::piuVisibile()
{
    QFETCH(int, Da);
    QFETCH(int, A);
    QTEST(Tre().PiuVisibile(Da, A), "Pagina");
}

void TestDisposizioneFogli::puntiAndataERitorno()
{
    const DisposizioneFogli Posti(A4, 5, 130.0, {800, 600});
    const PuntoFoglio Punto{3, {55.0, 120.0}};
    const PuntoFoglio Tornato = Posti.InMm(Posti.InPixel(Punto));
    QCOMPARE(Tornato.Pagina, 3);
    QCOMPARE(Tornato.Mm, Punto.Mm);
}

void TestDisposizioneFogli::percentoAdatto()
{
    // The height decides, then the width.
    const double Alto = DisposizioneFogli::PercentoAdatto(A4, {2000, 32 + 1123});
    QVERIFY(qAbs(Alto - 100.0) < 0.1);
    const double Largo = DisposizioneFogli::PercentoAdatto(A4, {32 + 397, 2000});
    QVERIFY(qAbs(Largo - 50.0) < 0.1);
    QVERIFY(DisposizioneFogli::PercentoAdatto(A4, {0, 0}) > 0.0);
}

#include "TestDisposizioneFogli.moc"
