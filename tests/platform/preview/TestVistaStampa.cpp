// The preview: pages, scale, place, colours, what a screen reader hears.
#include "platform/kit/aspetto.h"
#include "supporto/prova.h"
#include "vista_prova.h"

#include <QAccessible>
#include <QLabel>
#include <QSignalSpy>
#include <QWheelEvent>

#include <ctime>

using namespace Qt::StringLiterals;

class TestVistaStampa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentoVuotoEUnFoglioBianco();
    void parteDaOttanta();
    void zoomTraILimiti_data();
    void zoomTraILimiti();
    void zoomUgualeNonSiAnnuncia();
    void adattaMostraLaPaginaIntera();
    void adattaSegueLaFinestraFinoAUnoZoom();
    void ingrandireLasciaInVistaLaTestata_data();
    void ingrandireLasciaInVistaLaTestata();
    void vaiAllaPagina_data();
    void vaiAllaPagina();
    void pagineTutteInVistaSiContano();
    void rotellaScorreESegueLaPagina();
    void controlRotellaZoomaAttornoAlPuntatore();
    void tastiScorrono();
    void tastiDelloZoom();
    void ricomposizioneTieneIlPosto();
    void menoPagineDelPostoInVista();
    void conteggioDellaSuperficie();
    void siDisponeUnaVolta();
    void ugualeNonSiDisponeDiNuovo();
    void cartaNuovaImpaginaDiNuovo();
    void mutareLaFinestraTieneIlPosto();
    void fondoDellaSuperficie();
    void foglioBiancoNelBuio();
    void milleRigheFinoInFondo();
    void ingrandimentoMassimoSiDipinge();
    void lAvvisoVaACapo();
    void leggibileDaChiAscolta();
};
PROVA(TestVistaStampa);

namespace {

void Ruota(FogliStampa* Fogli, QPoint Dove, int Scatti, Qt::KeyboardModifiers Con = Qt::NoModifier)
{
    QWheelEvent Evento(Dove, Fogli->viewport()->mapToGlobal(QPointF(Dove)), {}, {0, Scatti * 120},
                       Qt::NoButton, Con, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Fogli->viewport(), &Evento);
}

/// Pixels of the viewport that are neither paper nor background: ink.
int Inchiostro(const Scena& S)
{
    const QImage Presa = S.Fogli->viewport()->grab().toImage();
    int Scuri = 0;
    for (int y = 0; y < Presa.height(); ++y)
        for (int x = 0; x < Presa.width(); ++x)
            Scuri += Presa.pixelColor(x, y).lightness() < 90 ? 1 : 0;
    return Scuri;
}

}  // namespace

void TestVistaStampa::documentoVuotoEUnFoglioBianco()
{
    Scena S(0);
    QCOMPARE(S.vp.NumeroPagine(), 1);
    QCOMPARE(S.vp.PaginaInVista(), 1);
    for (const Qt::Key Tasto : {Qt::Key_End, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Up})
        Premi(Tasto);
    for (const Qt::Key Tasto : {Qt::Key_Right, Qt::Key_Down, Qt::Key_End})
        Premi(Tasto, Qt::ShiftModifier);
    QTest::mouseDClick(S.Fogli->viewport(), Qt::LeftButton, {}, {350, 200});
    QVERIFY(S.vp.Scelta().Vuota());
    QCOMPARE(S.vp.PaginaInVista(), 1);
    QCOMPARE(S.Pixel({350, 200}), QColor(Qt::white));
}

void TestVistaStampa::parteDaOttanta()
{
    VistaStampa vp;
    QCOMPARE(vp.Zoom(), 80);
    QCOMPARE(vp.NumeroPagine(), 1);
    QVERIFY(!vp.Adattato());
}

void TestVistaStampa::zoomTraILimiti_data()
{
    QTest::addColumn<int>("Chiesto");
    QTest::addColumn<int>("Atteso");

    QTest::newRow("sotto il minimo") << 24 << 25;
    QTest::newRow("il minimo") << 25 << 25;
    QTest::newRow("voce del menu") << 120 << 120;
    QTest::newRow("il massimo") << 400 << 400;
    QTest::newRow("oltre il massimo") << 401 << 400;
    QTest::newRow("negativo") << -5 << 25;
}

void TestVistaStampa::zoomTraILimiti()
{
    QFETCH(int, Chiesto);
    Scena S(3);
    S.vp.ImpostaZoom(Chiesto);
    QTEST(S.vp.Zoom(), "Atteso");
}

void TestVistaStampa::zoomUgualeNonSiAnnuncia()
{
    Scena S(3);
    const QSignalSpy Annunci(&S.vp, &VistaStampa::ZoomCambiato);
    S.vp.ImpostaZoom(80);
    QCOMPARE(Annunci.size(), 0);
    S.vp.ImpostaZoom(90);
    QCOMPARE(Annunci.size(), 1);
    QCOMPARE(Annunci.first().first().toInt(), 90);
}

void TestVistaStampa::adattaMostraLaPaginaIntera()
{
    Scena S(200);
    S.vp.ImpostaPreviewPage(2);
    S.vp.ImpostaZoomMode(4);
    QVERIFY(!S.vp.Adattato());
    S.vp.ImpostaZoomMode(VistaStampa::ZoomAdatta);
    QVERIFY(S.vp.Adattato());
    QCOMPARE(S.vp.PaginaInVista(), 2);
    const QRect Pagina = S.Fogli->InFinestra({2, QRectF({}, S.vp.Pagine().DimensioneMm())});
    QVERIFY2(S.Fogli->viewport()->rect().contains(Pagina), qPrintable(QDebug::toString(Pagina)));
    QVERIFY(Pagina.height() > S.Fogli->viewport()->height() * 9 / 10);
}

void TestVistaStampa::adattaSegueLaFinestraFinoAUnoZoom()
{
    Scena S(3);
    S.vp.ImpostaZoomMode(VistaStampa::ZoomAdatta);
    const int Prima = S.vp.Zoom();
    const QSignalSpy Annunci(&S.vp, &VistaStampa::ZoomCambiato);
    S.vp.resize(700, 700);
    QTRY_VERIFY(S.vp.Zoom() > Prima);
    QCOMPARE(Annunci.last().first().toInt(), S.vp.Zoom());
    S.vp.ImpostaZoom(100);
    S.vp.resize(700, 500);
    Respiro();
    QCOMPARE(S.vp.Zoom(), 100);
}

void TestVistaStampa::ingrandireLasciaInVistaLaTestata_data()
{
    QTest::addColumn<int>("Pagina");
    QTest::addColumn<QString>("Prima");

    QTest::newRow("la prima") << 1 << u"Riga 1 "_s;
    QTest::newRow("una di mezzo") << 2 << u"Riga 64 "_s;
}

/// A page that was fitted to the window, and then is shown in its true size.
void TestVistaStampa::ingrandireLasciaInVistaLaTestata()
{
    QFETCH(int, Pagina);
    QFETCH(QString, Prima);
    Scena S(190);
    S.vp.ImpostaPreviewPage(Pagina);
    S.vp.ImpostaZoomMode(VistaStampa::ZoomAdatta);
    QVERIFY(S.vp.Zoom() < 100);
    QCOMPARE(S.vp.Pagine().Rettangoli(S.Dove(Prima)).constFirst().Pagina, Pagina);
    S.vp.ImpostaZoom(100);
    QCOMPARE(S.vp.PaginaInVista(), Pagina);
    const QRect Foglio = S.Fogli->InFinestra({Pagina, QRectF({}, S.vp.Pagine().DimensioneMm())});
    QVERIFY(Foglio.top() >= 0);
    QVERIFY(S.Fogli->viewport()->rect().contains(S.Riquadro(Prima)));
}

void TestVistaStampa::vaiAllaPagina_data()
{
    QTest::addColumn<int>("Chiesta");
    QTest::addColumn<int>("Attesa");

    QTest::newRow("prima della prima") << 0 << 1;
    QTest::newRow("di mezzo") << 2 << 2;
    QTest::newRow("ultima") << 4 << 4;
    QTest::newRow("oltre l'ultima") << 99 << 4;
}

void TestVistaStampa::vaiAllaPagina()
{
    QFETCH(int, Chiesta);
    QFETCH(int, Attesa);
    Scena S(190);
    QCOMPARE(S.vp.NumeroPagine(), 4);
    S.vp.ImpostaPreviewPage(3);
    S.vp.ImpostaPreviewPage(Chiesta);
    QCOMPARE(S.vp.PaginaInVista(), Attesa);
    const QRect Pagina = S.Fogli->InFinestra({Attesa, QRectF({}, S.vp.Pagine().DimensioneMm())});
    QVERIFY(Pagina.top() >= 0 && Pagina.top() < 20);
}

void TestVistaStampa::pagineTutteInVistaSiContano()
{
    // Two sheets side by side on the screen: nothing scrolls, yet the reader goes from one to the other.
    Scena S(80);
    S.vp.resize(700, 700);
    S.vp.ImpostaZoom(25);
    QCOMPARE(S.vp.NumeroPagine(), 2);
    QCOMPARE(S.Barra()->maximum(), 0);
    S.vp.ImpostaPreviewPage(2);
    QCOMPARE(S.vp.PaginaInVista(), 2);
    S.vp.ImpostaPreviewPage(1);
    QCOMPARE(S.vp.PaginaInVista(), 1);
}

void TestVistaStampa::rotellaScorreESegueLaPagina()
{
    Scena S(190);
    const QSignalSpy Annunci(&S.vp, &VistaStampa::PaginaCambiata);
    Ruota(S.Fogli, {300, 200}, -1);
    QVERIFY(S.Barra()->value() > 0);
    QCOMPARE(S.vp.PaginaInVista(), 1);
    for (int i = 0; i < 8; ++i)
        Ruota(S.Fogli, {300, 200}, -1);
    QCOMPARE(S.vp.PaginaInVista(), 2);
    QCOMPARE(Annunci.last().first().toInt(), 2);
    for (int i = 0; i < 9; ++i)
        Ruota(S.Fogli, {300, 200}, 1);
    QCOMPARE(S.Barra()->value(), 0);
    QCOMPARE(S.vp.PaginaInVista(), 1);
}

void TestVistaStampa::controlRotellaZoomaAttornoAlPuntatore()
{
    Scena S(190);
    S.vp.ImpostaPreviewPage(2);
    const QPoint Punto = S.Riquadro(u"Riga 70 "_s).center();
    QVERIFY(S.Fogli->viewport()->rect().contains(Punto));
    const qsizetype Posto = S.Fogli->PostoA(Punto);
    for (int i = 0; i < 5; ++i) {
        Ruota(S.Fogli, Punto, 1, Qt::ControlModifier);
        QVERIFY(qAbs(S.Fogli->PostoA(Punto) - Posto) <= 1);
    }
    QCOMPARE(S.vp.Zoom(), 129);
    Ruota(S.Fogli, Punto, -30, Qt::ControlModifier);
    QCOMPARE(S.vp.Zoom(), 25);
}

void TestVistaStampa::tastiScorrono()
{
    Scena S(190);
    Premi(Qt::Key_Down);
    QCOMPARE(S.Barra()->value(), S.Barra()->singleStep());
    Premi(Qt::Key_Up);
    QCOMPARE(S.Barra()->value(), 0);
    Premi(Qt::Key_PageDown);
    QCOMPARE(S.Barra()->value(), S.Barra()->pageStep());
    Premi(Qt::Key_PageUp);
    Premi(Qt::Key_End);
    QCOMPARE(S.Barra()->value(), S.Barra()->maximum());
    QCOMPARE(S.vp.PaginaInVista(), 4);
    Premi(Qt::Key_Home);
    QCOMPARE(S.vp.PaginaInVista(), 1);
}

void TestVistaStampa::tastiDelloZoom()
{
    Scena S(3);
    Premi(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(S.vp.Zoom(), 88);
    Premi(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(S.vp.Zoom(), 80);
    Premi(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(S.vp.Zoom(), 100);
}

void TestVistaStampa::ricomposizioneTieneIlPosto()
{
    Scena S(190);
    S.vp.ImpostaZoom(90);
    S.vp.ImpostaPreviewPage(3);
    Ruota(S.Fogli, {300, 200}, -1);
    const int Prima = S.Barra()->value();
    S.vp.SelezionaTutto();
    ScriviRighe(S.vp, 185);
    QCOMPARE(S.Barra()->value(), Prima);
    QCOMPARE(S.vp.PaginaInVista(), 3);
    QCOMPARE(S.vp.Zoom(), 90);
    QVERIFY(S.vp.Scelta().Vuota());
}

void TestVistaStampa::menoPagineDelPostoInVista()
{
    Scena S(190);
    S.vp.ImpostaPreviewPage(4);
    const QSignalSpy Annunci(&S.vp, &VistaStampa::PaginaCambiata);
    ScriviRighe(S.vp, 80);
    QCOMPARE(S.vp.NumeroPagine(), 2);
    QCOMPARE(S.vp.PaginaInVista(), 2);
    QCOMPARE(Annunci.size(), 1);
    ScriviRighe(S.vp, 0);
    QCOMPARE(S.vp.PaginaInVista(), 1);
    QVERIFY(S.Barra()->value() <= S.Barra()->maximum());
}

void TestVistaStampa::conteggioDellaSuperficie()
{
    VistaStampa vp;
    ScriviRighe(vp, 80);
    QCOMPARE(vp.Foglio().PageCount(), 2);
    vp.Foglio().StartDoc();
    QCOMPARE(vp.Foglio().PageCount(), 0);
    vp.Foglio().EndDoc();
    QCOMPARE(vp.Foglio().PageCount(), 1);
    QCOMPARE(vp.NumeroPagine(), 2);  // what is on view changes with Aggiorna
}

/// Whoever asks how far a document is tightened before it is shown has laid it out for the reader too.
void TestVistaStampa::siDisponeUnaVolta()
{
    Scena S(0);
    const auto Durata = [](const auto& Azione) {
        const std::clock_t Prima = std::clock();  // of this process alone
        Azione();
        return double(std::clock() - Prima);
    };
    documenti::PreparaPagina(S.vp.Foglio());
    for (int i = 0; i < 3000; ++i)
        S.vp.Foglio().Paragraph(u"Riga %1 del documento"_s.arg(i));
    S.vp.Foglio().EndDoc();
    const double Chiesta = Durata([&] { (void)S.vp.Foglio().Stringitore(S.vp.Foglio().Contenuto()); });
    QCOMPARE(S.vp.NumeroPagine(), 1);  // nothing of it is on view before it is shown
    const double Mostrata = Durata([&] { S.vp.Aggiorna(); });
    QVERIFY(S.vp.NumeroPagine() > 50);
    QVERIFY2(Mostrata < Chiesta / 2, qPrintable(u"%1 %2"_s.arg(Mostrata).arg(Chiesta)));
    // Another document that was asked for meanwhile is not the one that is shown.
    Documento Altro = S.vp.Foglio().Contenuto();
    Altro.Blocchi.resize(10);
    S.vp.Foglio().Paragraph(u"in coda"_s);
    S.vp.Foglio().EndDoc();
    QCOMPARE(S.vp.Foglio().Impaginatore(Altro), 1);
    S.vp.Aggiorna();
    QCOMPARE(S.vp.Pagine().Testo(), u"in coda\n"_s);
}

/// The same document stays as it stands: a box that was left without a change costs nothing. Any change is
/// one, though no word of it shows.
void TestVistaStampa::ugualeNonSiDisponeDiNuovo()
{
    Scena S(100);
    const QChar* Prima = S.vp.Pagine().Testo().constData();
    ScriviRighe(S.vp, 100);
    QCOMPARE(S.vp.Pagine().Testo().constData(), Prima);
    S.vp.Foglio().Author(u"Studio Conti"_s);
    S.vp.Aggiorna();
    QVERIFY(S.vp.Pagine().Testo().constData() != Prima);
    Prima = S.vp.Pagine().Testo().constData();
    S.vp.Foglio().MarginLeft(u"6cm"_s);
    S.vp.Aggiorna();
    QVERIFY(S.vp.Pagine().Testo().constData() != Prima);
    QVERIFY(S.vp.Pagine().Righe(1).front().Mm.left() > 55.0);
    S.vp.ImpostaCarta({148.0, 210.0});
    QCOMPARE(S.vp.Pagine().Foglio(), (Carta{148.0, 210.0}));
    // What was asked for on one sheet is none for another.
    S.vp.Foglio().Paragraph(u"altro"_s);
    S.vp.Foglio().EndDoc();
    QCOMPARE(S.vp.Foglio().PageCount(), 1);
    S.vp.ImpostaCarta({});
    QCOMPARE(S.vp.Pagine().Foglio(), Carta());
    QCOMPARE(S.vp.Pagine().Testo(), u"altro\n"_s);
}

void TestVistaStampa::cartaNuovaImpaginaDiNuovo()
{
    Scena S(190);
    S.vp.ImpostaCarta({148.0, 210.0});
    QVERIFY(S.vp.NumeroPagine() > 4);
    QCOMPARE(S.vp.CartaInUso(), (Carta{148.0, 210.0}));
    QCOMPARE(S.vp.Pagine().DimensioneMm(), QSizeF(148.0, 210.0));
}

void TestVistaStampa::mutareLaFinestraTieneIlPosto()
{
    Scena S(190);
    S.vp.ImpostaPreviewPage(3);
    const int Prima = S.Barra()->value();
    S.vp.resize(900, 420);
    Respiro();
    QCOMPARE(S.Barra()->value(), Prima);
    QCOMPARE(S.vp.PaginaInVista(), 3);
}

void TestVistaStampa::fondoDellaSuperficie()
{
    Scena S(3);
    QCOMPARE(S.Pixel({2, 2}), aspetto::DaBgr(-1));
    S.vp.Foglio().BackColor = 0xFEF8ED;
    S.vp.Aggiorna();
    QCOMPARE(S.Pixel({2, 2}), QColor(0xED, 0xF8, 0xFE));
}

void TestVistaStampa::foglioBiancoNelBuio()
{
    const QPalette Chiara = QApplication::palette();
    QPalette Scura;
    Scura.setColor(QPalette::Window, QColor(40, 40, 40));
    Scura.setColor(QPalette::WindowText, Qt::white);
    Scura.setColor(QPalette::Base, QColor(30, 30, 30));
    Scura.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(Scura);
    const auto Rimetti = qScopeGuard([&] { QApplication::setPalette(Chiara); });

    Scena S(0);
    QCOMPARE(S.Pixel({350, 200}), QColor(Qt::white));
    QCOMPARE(S.Pixel({2, 2}), QColor(40, 40, 40));
    S.vp.Foglio().BackColor = 0xFEF8ED;
    S.vp.Aggiorna();
    QVERIFY(S.Pixel({2, 2}).lightness() < 90);
    QVERIFY(S.Pixel({2, 2}) != QColor(40, 40, 40));
}

void TestVistaStampa::milleRigheFinoInFondo()
{
    Scena S(1000, u"ultima parola"_s);
    QVERIFY(S.vp.NumeroPagine() > 15);
    for (int Pagina = 1; Pagina <= S.vp.NumeroPagine(); ++Pagina) {
        S.vp.ImpostaPreviewPage(Pagina);
        QVERIFY(Inchiostro(S) > 100);
    }
    Premi(Qt::Key_End);
    QCOMPARE(S.vp.PaginaInVista(), S.vp.NumeroPagine());
}

void TestVistaStampa::ingrandimentoMassimoSiDipinge()
{
    Scena S(60);
    S.vp.ImpostaZoom(400);
    S.Fogli->Mostra(S.Dove(u"Riga 5 "_s));
    QVERIFY(S.Fogli->viewport()->rect().intersects(S.Riquadro(u"Riga 5 "_s)));
    QVERIFY(Inchiostro(S) > 1000);
}

void TestVistaStampa::lAvvisoVaACapo()
{
    Scena S(1);
    S.vp.ImpostaAvviso(
        u"Le clausole di ContrattoPersonaFisica.rtf sono state stampate solo in parte: il file è "
        u"troncato, e manca quanto segue le prime parole dell'articolo 3"_s);
    const auto* Margine = S.vp.findChild<QLabel*>(u"avvisoAnteprima"_s);
    QVERIFY(Margine);
    const int Larga = S.vp.width();
    QTRY_VERIFY(Margine->isVisible() && Margine->width() == Larga);
    const QFontMetrics Misure(Margine->font());
    QVERIFY2(Misure.horizontalAdvance(Margine->text()) > Larga, "sta in una riga: non prova nulla");
    const QRect Righe =
        Misure.boundingRect({0, 0, Larga - 2 * Margine->margin(), 1000}, Qt::TextWordWrap, Margine->text());
    QTRY_VERIFY(Margine->height() >= Righe.height() + 2 * Margine->margin());
    QVERIFY(Righe.width() <= Larga);
    QCOMPARE(S.vp.width(), Larga);
}

void TestVistaStampa::leggibileDaChiAscolta()
{
    Scena S(190);
    S.vp.ImpostaPreviewPage(2);
    QAccessibleInterface* Voce = QAccessible::queryAccessibleInterface(S.Fogli);
    QVERIFY(Voce);
    QCOMPARE(Voce->text(QAccessible::Name), u"Anteprima di stampa"_s);
    QCOMPARE(Voce->text(QAccessible::Description), u"Pagina 2 di 4"_s);
    QVERIFY(Voce->state().readOnly);
    QAccessibleTextInterface* Testo = Voce->textInterface();
    QVERIFY(Testo);
    QCOMPARE(Testo->text(0, 6), u"Riga 1"_s);
    QCOMPARE(Testo->characterCount(), int(S.vp.Pagine().Testo().size()));
    const Selezione Parola = S.Dove(u"Riga 150 "_s);
    Testo->addSelection(int(Parola.Da), int(Parola.A));
    QCOMPARE(S.vp.TestoScelto(), u"Riga 150"_s);
    QCOMPARE(S.vp.PaginaInVista(), S.vp.Pagine().PaginaDi(Parola.Da));
    int Da = -1;
    int A = -1;
    Testo->selection(0, &Da, &A);
    QCOMPARE(Selezione(Da, A), Parola);
    const QRect Lettera = Testo->characterRect(Da);
    QCOMPARE(Testo->offsetAtPoint({Lettera.left() + 1, Lettera.center().y()}), Da);
}

#include "TestVistaStampa.moc"
