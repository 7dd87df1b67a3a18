#include "platform/grid/griglia_selettore.h"

#include "platform/grid/griglia_cella.h"
#include "platform/grid/griglia_modello.h"
#include "platform/grid/griglia_vista.h"
#include "platform/kit/aspetto.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QTimerEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int Larghezza = 22;
constexpr int ScorrimentoMs = 70;

/// The current row's triangle, the asterisk of the empty row.
void DisegnaSegno(QPainter* Pennello, const QRect& Riquadro, bool Corrente, bool Vuota, const QColor& Colore)
{
    Pennello->save();
    Pennello->setRenderHint(QPainter::Antialiasing);
    const QPointF Centro = QRectF(Riquadro).center();
    if (Corrente) {
        constexpr double Mezzo = 4;
        QPainterPath Freccia(Centro + QPointF(-Mezzo / 2, -Mezzo));
        Freccia.lineTo(Centro + QPointF(Mezzo / 2 + 1, 0));
        Freccia.lineTo(Centro + QPointF(-Mezzo / 2, Mezzo));
        Freccia.closeSubpath();
        Pennello->fillPath(Freccia, Colore);
    } else if (Vuota) {
        Pennello->setPen(Colore);
        Pennello->drawText(Riquadro, Qt::AlignCenter, u"*"_s);
    }
    Pennello->restore();
}

}  // namespace

SelettoreRighe::SelettoreRighe(Griglia* Intera, VistaGriglia* DiVista)
    : QHeaderView(Qt::Vertical, DiVista), Padrona(Intera), Vista(DiVista)
{
    setSectionResizeMode(QHeaderView::Fixed);
    setSectionsClickable(true);
    setHighlightSections(false);
}

QSize SelettoreRighe::sizeHint() const
{
    return {Larghezza, QHeaderView::sizeHint().height()};
}

// ---- the rows selected

void SelettoreRighe::Cambiata()
{
    viewport()->update();
    Vista->viewport()->update();
}

QList<int> SelettoreRighe::Scelte() const
{
    return Vista->Modello()->RigheDi(Ordine);
}

bool SelettoreRighe::Scelta(int Riga) const
{
    return Insieme.contains(Vista->Modello()->Chiave(Riga));
}

int SelettoreRighe::RigaDi(quint64 Chiave) const
{
    const QList<int> Trovata = Vista->Modello()->RigheDi({Chiave});
    return Trovata.isEmpty() ? -1 : Trovata.constFirst();
}

void SelettoreRighe::Aggiungi(int Riga)
{
    const quint64 Chiave = Vista->Modello()->Chiave(Riga);
    if (Chiave == 0 || Insieme.contains(Chiave))
        return;
    Ordine += Chiave;
    Insieme += Chiave;
}

void SelettoreRighe::Scegli(int Riga)
{
    const qsizetype Prima = Ordine.size();
    Aggiungi(Riga);
    if (Ordine.size() != Prima)
        Cambiata();
}

void SelettoreRighe::Togli(int Riga)
{
    const quint64 Chiave = Vista->Modello()->Chiave(Riga);
    if (!Insieme.remove(Chiave))
        return;
    Ordine.removeOne(Chiave);
    Cambiata();
}

void SelettoreRighe::Azzera()
{
    Tratto.clear();
    if (Ordine.isEmpty())
        return;
    Ordine.clear();
    Insieme.clear();
    Cambiata();
}

void SelettoreRighe::ScegliSola(int Riga)
{
    Azzera();
    Ancora = Vista->Modello()->Chiave(Riga);
    Scegli(Riga);
}

void SelettoreRighe::TuttaLaTabella()
{
    for (int Riga = 0; Riga < Vista->Modello()->RigheVere(); ++Riga)
        Aggiungi(Riga);
    Cambiata();
}

void SelettoreRighe::TogliSparite()
{
    const QList<int> Rimaste = Scelte();
    if (Rimaste.size() == Ordine.size())
        return;
    Ordine.clear();
    for (const int Riga : Rimaste)
        Ordine += Vista->Modello()->Chiave(Riga);
    Insieme = QSet<quint64>(Ordine.cbegin(), Ordine.cend());
    Cambiata();
}

void SelettoreRighe::Scambia(int Riga)
{
    Tratto.clear();
    Ancora = Vista->Modello()->Chiave(Riga);
    if (Scelta(Riga))
        Togli(Riga);
    else
        Scegli(Riga);
}

void SelettoreRighe::ScegliFino(int Riga)
{
    const QSet<quint64> Lasciate(Tratto.cbegin(), Tratto.cend());
    Ordine.removeIf([&](quint64 Chiave) { return Lasciate.contains(Chiave); });
    Insieme.subtract(Lasciate);
    const int Trovata = RigaDi(Ancora);
    const int Da = Trovata >= 0 ? Trovata : Riga;
    const int Passo = Riga >= Da ? 1 : -1;
    const qsizetype Prima = Ordine.size();
    for (int Prossima = Da; Prossima != Riga + Passo; Prossima += Passo)
        Aggiungi(Prossima);
    Tratto = Ordine.mid(Prima);
    Cambiata();
}

void SelettoreRighe::Estendi(int Da, int A)
{
    // A new run begins where the user stands, and the rows selected before it stay; else the run may turn
    // back.
    if (Vista->Modello()->Chiave(Da) != Estremo || !Scelta(Da)) {
        Ancora = Vista->Modello()->Chiave(Da);
        Tratto.clear();
    }
    ScegliFino(A);
    Estremo = Vista->Modello()->Chiave(A);
}

// ---- the mouse

int SelettoreRighe::RigaVera(int Y) const
{
    const int Riga = logicalIndexAt(Y);
    return Riga >= 0 && !Vista->Modello()->RigaVuota(Riga) ? Riga : -1;
}

void SelettoreRighe::mousePressEvent(QMouseEvent* Evento)
{
    Premuta = -1;
    // On the row of the open cell, or on none, nothing moves that would commit it.
    if (!Vista->Cella()->Concludi())
        return;
    const int Riga = RigaVera(qRound(Evento->position().y()));
    if (Riga < 0 || !Vista->VaiARiga(Riga))
        return;
    if (Evento->button() != Qt::LeftButton)
        return;
    Premuta = Riga;
    Inizio = Evento->position().toPoint();
    GiaScelta = false;
    if (Evento->modifiers().testFlag(Qt::ShiftModifier))
        ScegliFino(Riga);
    else if (Evento->modifiers().testFlag(Qt::ControlModifier))
        Scambia(Riga);
    else if (Scelta(Riga))
        GiaScelta = true;
    else
        ScegliSola(Riga);
}

void SelettoreRighe::mouseMoveEvent(QMouseEvent* Evento)
{
    const QPoint Punto = Evento->position().toPoint();
    if (!Trascina) {
        const bool Lontano = (Punto - Inizio).manhattanLength() >= QApplication::startDragDistance();
        const bool SullaStessa = logicalIndexAt(Punto.y()) == Premuta;  // a hand that shakes moves no row
        if (!Trascinabile || Premuta < 0 || !Evento->buttons().testFlag(Qt::LeftButton) || !Lontano ||
            SullaStessa)
            return;
        Trascina = true;
        setCursor(Qt::ClosedHandCursor);
        Scorrimento.start(ScorrimentoMs, this);
    }
    SeguiPuntatore(Punto.y());
}

void SelettoreRighe::mouseReleaseEvent(QMouseEvent* Evento)
{
    if (Trascina)
        Rilascia(Evento->position().toPoint());
    else if (Premuta >= 0 && GiaScelta && Ordine.size() == 1)
        Azzera();
    else if (Premuta >= 0 && GiaScelta)
        ScegliSola(Premuta);
    Premuta = -1;
    GiaScelta = false;
}

void SelettoreRighe::mouseDoubleClickEvent(QMouseEvent* Evento)
{
    // The second press of a quick pair is a click like the first.
    mousePressEvent(Evento);
}

void SelettoreRighe::contextMenuEvent(QContextMenuEvent* Evento)
{
    Padrona->ApriMenu(RigaVera(Evento->y()), Evento->globalPos());
}

// ---- dragging

std::optional<int> SelettoreRighe::Destinazione(int Y) const
{
    const int Riga = logicalIndexAt(Y);
    if (Y < 0 || Y >= viewport()->height() || Riga < 0)
        return std::nullopt;
    return std::min(Riga, Vista->Modello()->RigheVere());
}

int SelettoreRighe::RigaSegnata(int Numero) const
{
    const int Fine = Vista->Modello()->RigheVere();
    int Riga = 0;
    for (int Restano = Numero; Riga < Fine; ++Riga)
        if (!Scelta(Riga) && Restano-- == 0)
            break;
    return Riga;
}

void SelettoreRighe::SeguiPuntatore(int Y)
{
    UltimaY = Y;
    PostoLinea.reset();
    if (const auto Dove = Destinazione(Y)) {
        const int Prima = RigaSegnata(*Dove);
        const bool InFondo = Prima >= Vista->Modello()->RigheVere();
        const int Riga = InFondo ? Prima - 1 : Prima;
        PostoLinea = sectionViewportPosition(Riga) + (InFondo ? sectionSize(Riga) : 0);
    }
    viewport()->update();
    Vista->viewport()->update();
}

void SelettoreRighe::AnnullaTrascinamento()
{
    Trascina = false;
    Premuta = -1;
    PostoLinea.reset();
    Scorrimento.stop();
    unsetCursor();
    viewport()->update();
    Vista->viewport()->update();
}

void SelettoreRighe::Rilascia(const QPoint& Punto)
{
    const bool Dentro = Padrona->rect().contains(viewport()->mapTo(Padrona, Punto));
    const auto Dove = Destinazione(Punto.y());
    AnnullaTrascinamento();
    if (Dentro && Dove)
        Q_EMIT Padrona->Trascinata(*Dove);
    else if (Dentro)
        Q_EMIT Padrona->TrascinataFuori();
}

void SelettoreRighe::timerEvent(QTimerEvent* Evento)
{
    if (Evento->timerId() != Scorrimento.timerId()) {
        QHeaderView::timerEvent(Evento);
        return;
    }
    // Near an edge the rows come to the pointer.
    const int Margine = defaultSectionSize() / 2;
    QScrollBar* Barra = Vista->verticalScrollBar();
    if (UltimaY < Margine)
        Barra->setValue(Barra->value() - 1);
    else if (UltimaY >= viewport()->height() - Margine)
        Barra->setValue(Barra->value() + 1);
    SeguiPuntatore(UltimaY);
}

// ---- drawing

void SelettoreRighe::paintSection(QPainter* Pennello, const QRect& Riquadro, int Riga) const
{
    const bool Marcata = Scelta(Riga);
    const bool Vuota = Vista->Modello()->RigaVuota(Riga);
    const bool Corrente = Vista->currentIndex().row() == Riga;
    Pennello->fillRect(Riquadro, Marcata ? aspetto::RigaSelezionata() : palette().color(QPalette::Button));
    Pennello->fillRect(Riquadro.left(), Riquadro.bottom(), Riquadro.width(), 1, aspetto::Filo());
    Pennello->fillRect(Riquadro.right(), Riquadro.top(), 1, Riquadro.height(), aspetto::Filo());
    DisegnaSegno(Pennello, Riquadro, Corrente, Vuota,
                 Marcata ? aspetto::TestoRigaSelezionata() : palette().color(QPalette::ButtonText));
}
