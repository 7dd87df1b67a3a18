// The sheets under mouse and keys: selection, scrolling, the menu.
#include "platform/preview/vistastampa.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/preview/vistastampa_fogli.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QScrollBar>
#include <QStyleHints>
#include <QTimerEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int MsScorrimento = 40;

/// How far a coordinate lies outside 0..Lato, 0 inside.
int Fuori(int Valore, int Lato)
{
    return Valore < 0 ? Valore : std::max(0, Valore - Lato + 1);
}

}  // namespace

// ---- selection ------------------------------------------------------------------------------------

void FogliStampa::ImpostaScelta(qsizetype Da, qsizetype A)
{
    if (Da == Ancora && A == Capo)
        return;
    Ancora = Da;
    Capo = A;
    viewport()->update();
    Q_EMIT SceltaCambiata();
}

void FogliStampa::Scegli(const Selezione& Nuova)
{
    Nucleo = Nuova;
    ImpostaScelta(Nuova.Da, Nuova.A);
}

Selezione FogliStampa::UnitaIn(qsizetype Posto) const
{
    switch (Passo) {
    case Unita::Parole:
        return Pagine.ParolaIn(Posto);
    case Unita::Blocchi:
        return Pagine.BloccoIn(Posto);
    case Unita::Lettere:
        break;
    }
    return {Posto, Posto};
}

void FogliStampa::EstendiA(qsizetype Posto)
{
    const Selezione Raggiunta = UnitaIn(Posto);
    if (Posto < Nucleo.Da)
        ImpostaScelta(Nucleo.A, Raggiunta.Da);
    else
        ImpostaScelta(Nucleo.Da, std::max(Nucleo.A, Raggiunta.A));
}

// ---- mouse ----------------------------------------------------------------------------------------

void FogliStampa::mousePressEvent(QMouseEvent* Evento)
{
    if (Evento->button() != Qt::LeftButton)
        return;
    const QPoint Punto = Evento->position().toPoint();
    const bool Triplo =
        DalDoppioClic.isValid() &&
        DalDoppioClic.elapsed() < QGuiApplication::styleHints()->mouseDoubleClickInterval() &&
        (Punto - UltimoPunto).manhattanLength() < QGuiApplication::styleHints()->startDragDistance();
    DalDoppioClic.invalidate();
    UltimoPunto = Punto;
    Trascina = true;
    Passo = Triplo ? Unita::Blocchi : Unita::Lettere;
    if (Evento->modifiers() & Qt::ShiftModifier) {
        Nucleo = {Ancora, Ancora};
        EstendiA(PostoA(Punto));
    } else {
        Scegli(UnitaIn(PostoA(Punto)));
    }
}

void FogliStampa::mouseDoubleClickEvent(QMouseEvent* Evento)
{
    if (Evento->button() != Qt::LeftButton)
        return;
    UltimoPunto = Evento->position().toPoint();
    DalDoppioClic.start();
    Trascina = true;
    Passo = Unita::Parole;
    Scegli(UnitaIn(PostoA(UltimoPunto)));
}

void FogliStampa::mouseMoveEvent(QMouseEvent* Evento)
{
    const QPoint Punto = Evento->position().toPoint();
    if (Trascina) {
        SeguiPuntatore(Punto);
        return;
    }
    const PuntoFoglio Sotto = PuntoDi(Punto);
    const Qt::CursorShape Forma = Pagine.SulTesto(Sotto.Pagina, Sotto.Mm) ? Qt::IBeamCursor : Qt::ArrowCursor;
    if (viewport()->cursor().shape() != Forma)
        viewport()->setCursor(Forma);
}

void FogliStampa::SeguiPuntatore(QPoint InFinestra)
{
    UltimoPunto = InFinestra;
    const bool Oltre = !viewport()->rect().contains(InFinestra);
    if (Oltre && !TempoScorrimento.isActive())
        TempoScorrimento.start(MsScorrimento, this);
    else if (!Oltre)
        TempoScorrimento.stop();
    EstendiA(PostoA(InFinestra));
}

void FogliStampa::timerEvent(QTimerEvent* Evento)
{
    if (Evento->timerId() != TempoScorrimento.timerId()) {
        QAbstractScrollArea::timerEvent(Evento);
        return;
    }
    // The farther the pointer is outside, the quicker.
    QScrollBar* Giu = verticalScrollBar();
    QScrollBar* Lato = horizontalScrollBar();
    Giu->setValue(Giu->value() + Fuori(UltimoPunto.y(), viewport()->height()));
    Lato->setValue(Lato->value() + Fuori(UltimoPunto.x(), viewport()->width()));
    EstendiA(PostoA(UltimoPunto));
}

void FogliStampa::mouseReleaseEvent(QMouseEvent* Evento)
{
    if (Evento->button() != Qt::LeftButton || !Trascina)
        return;
    Trascina = false;
    TempoScorrimento.stop();
    QClipboard* Appunti = QGuiApplication::clipboard();
    if (Appunti->supportsSelection() && !Scelta().Vuota())
        Appunti->setText(Pagine.TestoDi(Scelta()), QClipboard::Selection);
}

void FogliStampa::contextMenuEvent(QContextMenuEvent* Evento)
{
    auto* Menu = new QMenu(this);
    Menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* Copia = Menu->addAction(aspetto::Icona(u"copia"_s), u"&Copia"_s);
    Copia->setShortcut(QKeySequence::Copy);
    Copia->setEnabled(!Scelta().Vuota());
    QAction* Tutto = Menu->addAction(u"&Seleziona tutto"_s);
    Tutto->setShortcut(QKeySequence::SelectAll);
    Menu->addSeparator();
    QAction* Cerca = Menu->addAction(aspetto::Icona(u"zoom"_s), u"Ce&rca..."_s);
    Cerca->setShortcut(QKeySequence::Find);
    Collega(Copia, &QAction::triggered, this, [this] { Q_EMIT CopiaChiesta(); });
    Collega(Tutto, &QAction::triggered, this, [this] { Scegli(Pagine.Tutto()); });
    Collega(Cerca, &QAction::triggered, this, [this] { Q_EMIT RicercaChiesta(); });
    const bool DaTastiera = Evento->reason() == QContextMenuEvent::Keyboard;
    Menu->popup(DaTastiera ? mapToGlobal(rect().center()) : Evento->globalPos());
}

// ---- keys -----------------------------------------------------------------------------------------

/// Place above or below the caret, or where it is at the document's ends.
qsizetype FogliStampa::PostoInAltraRiga(int Verso) const
{
    const RettangoloPagina Ora = Pagine.Cursore(Capo);
    const std::vector<RigaImpaginata>& Sue = Pagine.Righe(Ora.Pagina);
    const QPointF Meta = Ora.Mm.center();
    const RigaImpaginata* Vicina = nullptr;
    for (const RigaImpaginata& Riga : Sue) {
        const double Distanza = (Riga.Mm.center().y() - Meta.y()) * Verso;
        if (Distanza > Ora.Mm.height() / 2.0 &&
            (!Vicina || Distanza < (Vicina->Mm.center().y() - Meta.y()) * Verso))
            Vicina = &Riga;
    }
    if (Vicina)
        return Pagine.PostoIn(Ora.Pagina, {Meta.x(), Vicina->Mm.center().y()});
    const int Altra = Ora.Pagina + Verso;
    if (Altra < 1 || Altra > Pagine.NumeroPagine())
        return Verso < 0 ? 0 : Pagine.Tutto().A;
    return Pagine.PostoIn(Altra, {Meta.x(), Verso < 0 ? Pagine.DimensioneMm().height() : 0.0});
}

bool FogliStampa::MuoviCapo(int Tasto)
{
    if (Ancora == 0 && Capo == 0) {
        const qsizetype Inizio = PrimoPostoInVista();  // nothing was pointed at yet
        Scegli({Inizio, Inizio});
    }
    qsizetype Posto = Capo;
    switch (Tasto) {
    case Qt::Key_Left:
        Posto = std::max<qsizetype>(0, Capo - 1);
        break;
    case Qt::Key_Right:
        Posto = std::min(Capo + 1, Pagine.Tutto().A);
        break;
    case Qt::Key_Up:
        Posto = PostoInAltraRiga(-1);
        break;
    case Qt::Key_Down:
        Posto = PostoInAltraRiga(1);
        break;
    case Qt::Key_Home:
        Posto = 0;
        break;
    case Qt::Key_End:
        Posto = Pagine.Tutto().A;
        break;
    default:
        return false;
    }
    ImpostaScelta(Ancora, Posto);
    Mostra({Posto, Posto});
    return true;
}

bool FogliStampa::Scorri(QKeyEvent* Evento)
{
    struct Mossa
    {
        int Tasto;
        Qt::Orientation Verso;
        QAbstractSlider::SliderAction Azione;
    };
    static constexpr std::array Mosse{
        Mossa{Qt::Key_Up, Qt::Vertical, QAbstractSlider::SliderSingleStepSub},
        Mossa{Qt::Key_Down, Qt::Vertical, QAbstractSlider::SliderSingleStepAdd},
        Mossa{Qt::Key_Left, Qt::Horizontal, QAbstractSlider::SliderSingleStepSub},
        Mossa{Qt::Key_Right, Qt::Horizontal, QAbstractSlider::SliderSingleStepAdd},
        Mossa{Qt::Key_PageUp, Qt::Vertical, QAbstractSlider::SliderPageStepSub},
        Mossa{Qt::Key_PageDown, Qt::Vertical, QAbstractSlider::SliderPageStepAdd},
        Mossa{Qt::Key_Home, Qt::Vertical, QAbstractSlider::SliderToMinimum},
        Mossa{Qt::Key_End, Qt::Vertical, QAbstractSlider::SliderToMaximum},
    };
    const auto Sua = std::ranges::find(Mosse, Evento->key(), &Mossa::Tasto);
    if (Sua == Mosse.end())
        return false;
    QScrollBar* Barra = Sua->Verso == Qt::Vertical ? verticalScrollBar() : horizontalScrollBar();
    Barra->triggerAction(Sua->Azione);
    SeguiPagina();  // a bar that is at its end already tells nothing
    return true;
}

void FogliStampa::keyPressEvent(QKeyEvent* Evento)
{
    const Qt::KeyboardModifiers Con = Evento->modifiers() & ~Qt::KeypadModifier;
    const bool Fatto =
        (Con == Qt::ShiftModifier && MuoviCapo(Evento->key())) || (Con == Qt::NoModifier && Scorri(Evento));
    Evento->setAccepted(Fatto);
}

void FogliStampa::focusInEvent(QFocusEvent* Evento)
{
    QAbstractScrollArea::focusInEvent(Evento);
    viewport()->update();
}

void FogliStampa::focusOutEvent(QFocusEvent* Evento)
{
    QAbstractScrollArea::focusOutEvent(Evento);
    viewport()->update();
}
