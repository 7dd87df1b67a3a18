#include "platform/grid/griglia_disegno.h"

#include "platform/grid/griglia_modello.h"
#include "platform/grid/griglia_selettore.h"
#include "platform/grid/griglia_vista.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/suggerimento.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr int LatoImmagine = 16;

QRect RiquadroTesto(const QRect& Riquadro, const QModelIndex& Cella)
{
    const bool ConImmagine = Cella.data(Qt::DecorationRole).isValid();
    return Riquadro.adjusted(MargineCella + (ConImmagine ? LatoImmagine + MargineCella : 0), 0, -MargineCella,
                             -1);
}

void DipingiImmagine(QPainter* Pennello, const QRect& Riquadro, const QModelIndex& Cella)
{
    const QRect Posto(Riquadro.left() + MargineCella,
                      Riquadro.top() + (Riquadro.height() - 1 - LatoImmagine) / 2, LatoImmagine,
                      LatoImmagine);
    Cella.data(Qt::DecorationRole).value<QIcon>().paint(Pennello, Posto);
}

/// Dark on the ground of a selected row, which is light in every palette.
QColor ColoreTesto(const QPalette& Colori, QPalette::ColorGroup Gruppo, bool Scelta, bool Segnata)
{
    constexpr double Parte = 0.75;
    if (Scelta)
        return Segnata ? aspetto::Mischia(Qt::red, aspetto::TestoRigaSelezionata(), Parte)
                       : aspetto::TestoRigaSelezionata();
    return Segnata ? aspetto::Sbagliato() : Colori.color(Gruppo, QPalette::Text);
}

/// The sign of a cell at the end that its text leaves free; none where the text needs the room.
void DipingiSegno(QPainter* Pennello, const QRect& Riquadro, Qt::Alignment Allinea, int LargoTesto)
{
    const QString Segno = u"!"_s;
    const int Largo = Pennello->fontMetrics().horizontalAdvance(Segno);
    if (LargoTesto + Largo + MargineCella <= Riquadro.width())
        Pennello->drawText(
            Riquadro, int((Allinea & Qt::AlignRight ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter),
            Segno);
}

/// One line: the breaks of a long description would show as boxes.
QString SuUnaRiga(const QModelIndex& Cella)
{
    return Cella.data().toString().replace(u'\r', u' ').replace(u'\n', u' ');
}

}  // namespace

int StileTitoli::pixelMetric(PixelMetric Misura, const QStyleOption* Opzioni, const QWidget* Oggetto) const
{
    return Misura == PM_HeaderMargin ? MargineCella : QProxyStyle::pixelMetric(Misura, Opzioni, Oggetto);
}

DisegnoCelle::DisegnoCelle(VistaGriglia* DiVista) : QStyledItemDelegate(DiVista), Vista(DiVista)
{}

QColor DisegnoCelle::Fondo(const QModelIndex& Cella) const
{
    constexpr double TintaAlterna = 0.035;
    constexpr double TintaCorrente = 0.16;
    constexpr double TintaConFuoco = 0.32;  // where no cell can be framed the row alone shows the focus
    if (Vista->Selettore()->Scelta(Cella.row()))
        return aspetto::RigaSelezionata();
    const QPalette Colori = Vista->palette();
    QColor Colore = Colori.color(QPalette::Base);
    if (Cella.row() % 2 == 1)
        Colore = aspetto::Mischia(Colori.color(QPalette::Text), Colore, TintaAlterna);
    if (Cella.row() == Vista->currentIndex().row() && Vista->Evidente) {
        const bool Viva = Vista->hasFocus() && !Vista->Modello()->HaModificabili();
        Colore = aspetto::Mischia(aspetto::Accento(), Colore, Viva ? TintaConFuoco : TintaCorrente);
    }
    return Colore;
}

void DisegnoCelle::paint(QPainter* Pennello, const QStyleOptionViewItem& Opzioni,
                         const QModelIndex& Cella) const
{
    const QRect& Riquadro = Opzioni.rect;
    const QPalette Colori = Vista->palette();
    const bool Scelta = Vista->Selettore()->Scelta(Cella.row());
    const auto Gruppo = Vista->isEnabled() ? QPalette::Active : QPalette::Disabled;
    Pennello->fillRect(Riquadro, Fondo(Cella));
    // Filled, not drawn: a line of one pixel has seams at a scale of one and a half.
    Pennello->fillRect(Riquadro.left(), Riquadro.bottom(), Riquadro.width(), 1, aspetto::Filo());

    Pennello->setFont(Opzioni.font);
    const bool Segnata = !Vista->Modello()->Segno(Cella.row(), Cella.column()).isEmpty();
    Pennello->setPen(ColoreTesto(Colori, Gruppo, Scelta, Segnata));
    DipingiImmagine(Pennello, Riquadro, Cella);
    const QRect Testo = RiquadroTesto(Riquadro, Cella);
    const auto Allinea = Qt::Alignment(Cella.data(Qt::TextAlignmentRole).toInt());
    const QString Mostrato = Opzioni.fontMetrics.elidedText(SuUnaRiga(Cella), Qt::ElideRight, Testo.width());
    Pennello->drawText(Testo, int(Allinea) | Qt::TextSingleLine, Mostrato);
    if (Segnata)
        DipingiSegno(Pennello, Testo, Allinea, Opzioni.fontMetrics.horizontalAdvance(Mostrato));

    if (Cella == Vista->currentIndex() && Vista->hasFocus() && Vista->Modello()->HaModificabili()) {
        Pennello->setPen(Scelta ? aspetto::TestoRigaSelezionata() : aspetto::Accento());
        Pennello->drawRect(Riquadro.adjusted(0, 0, -1, -2));
    }
}

/// What is amiss with the cell, else what the form says of the row, else a text that does not fit, whole.
bool DisegnoCelle::helpEvent(QHelpEvent* Evento, QAbstractItemView*, const QStyleOptionViewItem& Opzioni,
                             const QModelIndex& Cella)
{
    if (Evento->type() != QEvent::ToolTip || !Cella.isValid()) {
        QToolTip::hideText();
        return true;
    }
    QString Testo = Vista->Modello()->Segno(Cella.row(), Cella.column());
    if (Testo.isEmpty())
        Testo = Vista->SuggerimentoDi(Cella.row());
    if (Testo.isEmpty()) {
        Testo = Cella.data().toString();
        if (Opzioni.fontMetrics.horizontalAdvance(Testo) <= RiquadroTesto(Opzioni.rect, Cella).width())
            Testo.clear();
    }
    if (Testo.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(Evento->globalPos(), SuPiuRighe(Testo), Vista, Opzioni.rect);
    return true;
}
