// The fits of the preview: a whole page, its width, by menu and key, with the window's size.
#include "platform/preview/barraanteprima.h"
#include "platform/preview/vista_prova.h"
#include "supporto/prova.h"

#include <QAction>
#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>

using namespace Qt::StringLiterals;

class TestAdattamento : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void larghezza_data();
    void larghezza();
    void larghezzaSegueLaFinestra();
    void laBarraNonBalla();
    void restaDoveSiLegge();
    void tasti_data();
    void tasti();
    void unoZoomLoToglie_data();
    void unoZoomLoToglie();
    void siAnnuncia();
    void dalMenu();

private:
    static QRect Pagina(const Scena& S, int Quale)
    {
        return S.Fogli->InFinestra({Quale, QRectF({}, S.vp.Pagine().DimensioneMm())});
    }
};
PROVA(TestAdattamento);

void TestAdattamento::larghezza_data()
{
    QTest::addColumn<int>("Righe");
    QTest::addColumn<QSize>("Finestra");
    QTest::newRow("una pagina") << 3 << QSize(700, 500);
    QTest::newRow("più pagine") << 200 << QSize(700, 500);
    QTest::newRow("larga e bassa") << 200 << QSize(1000, 200);
    QTest::newRow("stretta e alta") << 3 << QSize(350, 900);
}

void TestAdattamento::larghezza()
{
    QFETCH(int, Righe);
    QFETCH(QSize, Finestra);
    Scena S(Righe);
    S.vp.resize(Finestra);
    S.vp.ImpostaZoomMode(VistaStampa::ZoomLarghezza);
    Respiro();
    const int Larga = S.Fogli->viewport()->width();
    const QRect Foglio = Pagina(S, 1);
    QVERIFY2(qAbs(Foglio.width() - (Larga - 2 * DisposizioneFogli::Margine)) <= 1,
             qPrintable(QDebug::toString(Foglio) + u' ' + QString::number(Larga)));
    QCOMPARE(S.Fogli->horizontalScrollBar()->maximum(), 0);
}

void TestAdattamento::larghezzaSegueLaFinestra()
{
    Scena S(200);
    S.vp.ImpostaZoomMode(VistaStampa::ZoomLarghezza);
    Respiro();
    const int Prima = S.vp.Zoom();
    S.vp.resize(900, 500);
    Respiro();
    QVERIFY(S.vp.Zoom() > Prima);
    S.vp.resize(700, 500);
    Respiro();
    QCOMPARE(S.vp.Zoom(), Prima);
    QCOMPARE(S.vp.ZoomMode(), VistaStampa::ZoomLarghezza);
}

/// A sheet that just fits in height: with its bar it is lower, and needs none; the scale settles all the
/// same.
void TestAdattamento::laBarraNonBalla()
{
    Scena S(3);
    for (int Altezza = 560; Altezza < 640; ++Altezza) {
        S.vp.resize(420, Altezza);
        S.vp.ImpostaZoomMode(VistaStampa::ZoomLarghezza);
        Respiro();
        const int Zoom = S.vp.Zoom();
        Respiro();
        QCOMPARE(S.vp.Zoom(), Zoom);
        QCOMPARE(S.Fogli->horizontalScrollBar()->maximum(), 0);
    }
}

void TestAdattamento::restaDoveSiLegge()
{
    Scena S(200);
    S.vp.ImpostaPreviewPage(2);
    S.vp.ImpostaZoomMode(VistaStampa::ZoomLarghezza);
    QCOMPARE(S.vp.PaginaInVista(), 2);
}

void TestAdattamento::tasti_data()
{
    QTest::addColumn<Qt::Key>("Tasto");
    QTest::addColumn<int>("Modo");
    QTest::newRow("Ctrl+1") << Qt::Key_1 << VistaStampa::ZoomIntera;
    QTest::newRow("Ctrl+2") << Qt::Key_2 << VistaStampa::ZoomLarghezza;
}

void TestAdattamento::tasti()
{
    QFETCH(Qt::Key, Tasto);
    Scena S(3);
    QTest::keyClick(S.Fogli, Tasto, Qt::ControlModifier);
    QTEST(S.vp.ZoomMode(), "Modo");
    QTest::keyClick(S.Fogli, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(S.vp.ZoomMode(), VistaStampa::ZoomLibero);
    QCOMPARE(S.vp.Zoom(), 100);
}

void TestAdattamento::unoZoomLoToglie_data()
{
    QTest::addColumn<int>("Come");
    QTest::newRow("percento") << 0;
    QTest::newRow("rotella") << 1;
    QTest::newRow("tasto") << 2;
}

void TestAdattamento::unoZoomLoToglie()
{
    QFETCH(int, Come);
    Scena S(3);
    S.vp.ImpostaZoomMode(VistaStampa::ZoomLarghezza);
    if (Come == 0) {
        S.vp.ImpostaZoom(90);
    } else if (Come == 1) {
        QWheelEvent Scatto({100, 100}, S.Fogli->viewport()->mapToGlobal(QPointF(100, 100)), {}, {0, 120}, {},
                           Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(S.Fogli->viewport(), &Scatto);
    } else {
        QTest::keyClick(S.Fogli, Qt::Key_Plus, Qt::ControlModifier);
    }
    QCOMPARE(S.vp.ZoomMode(), VistaStampa::ZoomLibero);
    const int Zoom = S.vp.Zoom();
    S.vp.resize(900, 600);
    Respiro();
    QCOMPARE(S.vp.Zoom(), Zoom);
}

void TestAdattamento::siAnnuncia()
{
    Scena S(3);
    const QSignalSpy Annunci(S.Fogli, &FogliStampa::AdattamentoCambiato);
    S.vp.ImpostaZoomMode(VistaStampa::ZoomLarghezza);
    S.vp.ImpostaZoomMode(VistaStampa::ZoomLarghezza);
    S.vp.resize(800, 500);
    Respiro();
    QCOMPARE(Annunci.size(), 1);
    S.vp.ImpostaZoom(90);
    QCOMPARE(Annunci.size(), 2);
    QCOMPARE(S.vp.ZoomMode(), VistaStampa::ZoomLibero);
}

void TestAdattamento::dalMenu()
{
    Scena S(3);
    BarraAnteprima Barra;
    Barra.setObjectName(u"barPrint"_s);
    Barra.ImpostaVista(&S.vp);
    Barra.AggiungiZoom();
    auto* Menu = Barra.findChild<QMenu*>(u"menuZoom"_s);
    auto* Intera = Menu->findChild<QAction*>(u"paginaintera"_s);
    auto* Larga = Menu->findChild<QAction*>(u"larghezzapagina"_s);
    QCOMPARE(Intera->text().section(u'\t', 0, 0), u"Pagina intera"_s);
    // The keys stand beside the words and are answered by the page alone.
    QCOMPARE(QKeySequence(Intera->text().section(u'\t', 1)), QKeySequence(Qt::CTRL | Qt::Key_1));
    QCOMPARE(Intera->shortcut(), QKeySequence());
    QCOMPARE(Larga->text().section(u'\t', 0, 0), u"Larghezza pagina"_s);
    Larga->trigger();
    QCOMPARE(S.vp.ZoomMode(), VistaStampa::ZoomLarghezza);
    Q_EMIT Menu->aboutToShow();
    QVERIFY(Larga->isChecked() && !Intera->isChecked());
    Menu->findChild<QAction*>(u"z999"_s)->trigger();
    QCOMPARE(S.vp.ZoomMode(), VistaStampa::ZoomAdatta);
    Q_EMIT Menu->aboutToShow();
    QVERIFY(!Larga->isChecked() && !Intera->isChecked());
    Intera->trigger();
    QCOMPARE(S.vp.ZoomMode(), VistaStampa::ZoomIntera);
    QVERIFY(S.Fogli->viewport()->rect().contains(Pagina(S, 1)));
    Intera->trigger();
    QCOMPARE(S.vp.ZoomMode(), VistaStampa::ZoomLibero);
    QCOMPARE(S.vp.Zoom(), 80);
}

#include "TestAdattamento.moc"
