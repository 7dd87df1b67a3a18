#include "platform/grid/griglia_pie.h"

#include "platform/grid/griglia_disegno.h"
#include "platform/grid/griglia_modello.h"
#include "platform/grid/griglia_selettore.h"
#include "platform/grid/griglia_vista.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QFont Grassetto(QFont Carattere)
{
    Carattere.setBold(true);
    return Carattere;
}

}  // namespace

PieGriglia::PieGriglia(VistaGriglia* DiVista, QWidget* Padre) : QWidget(Padre), Vista(DiVista)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setVisible(false);
    const auto Ridisegna = [this] {
        Allarga();
        update();
    };
    const QHeaderView* Testata = Vista->horizontalHeader();
    Collega(Testata, &QHeaderView::sectionResized, this, Ridisegna);
    Collega(Testata, &QHeaderView::sectionMoved, this, Ridisegna);
    Collega(Testata, &QHeaderView::geometriesChanged, this, Ridisegna);
    Collega(Vista->horizontalScrollBar(), &QScrollBar::valueChanged, this, Ridisegna);
}

QSize PieGriglia::sizeHint() const
{
    constexpr int Aria = 10;
    return {0, QFontMetrics(Grassetto(font())).height() + Aria};
}

void PieGriglia::Imposta(int Colonna, const QString& Testo)
{
    if (Testi.value(Colonna) == Testo)
        return;
    Testi[Colonna] = Testo;
    if (!Testo.isEmpty())
        setVisible(true);
    Racconta();
    Vista->EsigiLarghezza(Colonna, 0);  // the text before may have been longer
    Allarga();
    update();
}

void PieGriglia::Azzera()
{
    Testi.clear();
    setVisible(false);
}

/// What is painted is told to screen readers too.
void PieGriglia::Racconta()
{
    QStringList Parti;
    for (int i = 0; i < Vista->Modello()->columnCount(); ++i)
        if (const QString Testo = Testi.value(i).trimmed(); !Testo.isEmpty())
            Parti += Vista->Modello()->Colonne()[i].Titolo + u": "_s + Testo;
    setAccessibleName(Parti.join(u"; "_s));
}

QRect PieGriglia::Riquadro(int Colonna) const
{
    if (Vista->isColumnHidden(Colonna))
        return {};
    return QRect(Vista->Selettore()->width() + Vista->columnViewportPosition(Colonna), 0,
                 Vista->columnWidth(Colonna), height());
}

int PieGriglia::Occorre(int Colonna) const
{
    // Letters have fractions of a point, and a text that lacks one is shortened.
    constexpr int Frazione = 1;
    return QFontMetrics(Grassetto(font())).horizontalAdvance(Testo(Colonna)) + 2 * MargineCella + Frazione;
}

QRect PieGriglia::Spazio(int Colonna) const
{
    QRect Posto = Riquadro(Colonna);
    if (Posto.isEmpty())
        return Posto;
    const QHeaderView* Testata = Vista->horizontalHeader();
    const bool ASinistra = Vista->Modello()->Colonne()[Colonna].Allinea & Qt::AlignRight;
    int Manca = Occorre(Colonna) - Posto.width();
    for (int i = Testata->visualIndex(Colonna) + (ASinistra ? -1 : 1);
         Manca > 0 && i >= 0 && i < Testata->count(); i += ASinistra ? -1 : 1) {
        const int Vicina = Testata->logicalIndex(i);
        if (Vista->isColumnHidden(Vicina))
            continue;
        if (!Testo(Vicina).isEmpty()) {
            // It may lean into the same empty columns from the other side, and was there first.
            if (ASinistra && !(Vista->Modello()->Colonne()[Vicina].Allinea & Qt::AlignRight))
                Posto.setLeft(std::max(Posto.left(), Spazio(Vicina).right() + 1));
            break;
        }
        const int Preso = std::min(Manca, Vista->columnWidth(Vicina));
        Posto.adjust(ASinistra ? -Preso : 0, 0, ASinistra ? 0 : Preso, 0);
        Manca -= Preso;
    }
    return Posto;
}

/// A figure that is cut reads as another one.
void PieGriglia::Allarga()
{
    for (int i = 0; i < Vista->Modello()->columnCount(); ++i) {
        const QString Scritto = Testo(i);
        const int Manca = Scritto.isEmpty() || Vista->isColumnHidden(i) ? 0 : Occorre(i) - Spazio(i).width();
        if (Manca > 0)
            Vista->EsigiLarghezza(i, Vista->columnWidth(i) + Manca);
    }
}

void PieGriglia::paintEvent(QPaintEvent*)
{
    QPainter Pennello(this);
    Pennello.fillRect(rect(), palette().color(QPalette::Button));
    Pennello.fillRect(0, 0, width(), 1, aspetto::Filo());
    Pennello.setClipRect(Vista->Selettore()->width(), 0, Vista->viewport()->width(), height());
    Pennello.setFont(Grassetto(font()));
    Pennello.setPen(palette().color(QPalette::ButtonText));
    for (int i = 0; i < Vista->Modello()->columnCount(); ++i) {
        const QRect Posto = Spazio(i).adjusted(MargineCella, 0, -MargineCella, 0);
        const QString Testo = Testi.value(i);
        if (Testo.isEmpty() || Posto.isEmpty())
            continue;
        Pennello.drawText(Posto,
                          int(Vista->Modello()->Colonne()[i].Allinea | Qt::AlignVCenter) | Qt::TextSingleLine,
                          Pennello.fontMetrics().elidedText(Testo, Qt::ElideRight, Posto.width()));
    }
}
