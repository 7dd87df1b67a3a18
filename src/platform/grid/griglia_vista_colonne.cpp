// The columns of the table view inside a grid: widths, order, those that stretch.
#include "platform/grid/griglia_modello.h"
#include "platform/grid/griglia_vista.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include <algorithm>

namespace {

constexpr int Margini = 14;

}  // namespace

int VistaGriglia::LarghezzaChiesta(int Colonna) const
{
    const ColonnaGriglia& Descritta = Righe->Colonne()[Colonna];
    return Descritta.Larghezza > 0 ? Descritta.Larghezza
                                   : Descritta.Caratteri * fontMetrics().horizontalAdvance(u'0') + Margini;
}

int VistaGriglia::LarghezzaTitolo(int Colonna) const
{
    return horizontalHeader()->fontMetrics().horizontalAdvance(Righe->Colonne()[Colonna].Titolo) + Margini;
}

void VistaGriglia::LarghezzeIniziali()
{
    for (int i = 0; i < Righe->columnCount(); ++i) {
        const ColonnaGriglia& Colonna = Righe->Colonne()[i];
        // Whatever width is asked for, a title is read whole.
        setColumnWidth(i, std::max(LarghezzaChiesta(i), LarghezzaTitolo(i)));
        setColumnHidden(i, !Colonna.Visibile);
        // An edge that gives way by itself is nothing to be dragged.
        horizontalHeader()->setSectionResizeMode(i, Colonna.Stira ? QHeaderView::Fixed
                                                                  : QHeaderView::Interactive);
    }
    LarghezzeNascoste.clear();
    LarghezzeMinime.clear();
    OrdinePrima = OrdineColonne();
    Stira();
}

void VistaGriglia::MostraColonna(int Colonna, bool Visibile)
{
    if (Visibile != isColumnHidden(Colonna))
        return;
    if (!Visibile)
        LarghezzeNascoste[Colonna] = columnWidth(Colonna);
    setColumnHidden(Colonna, !Visibile);
    if (Visibile && LarghezzeNascoste.contains(Colonna))
        setColumnWidth(Colonna, LarghezzeNascoste.take(Colonna));
    Stira();
}

void VistaGriglia::ImpostaLarghezza(int Colonna, int Larghezza)
{
    if (isColumnHidden(Colonna))
        LarghezzeNascoste[Colonna] = Larghezza;
    else
        setColumnWidth(Colonna, Larghezza);
}

QList<int> VistaGriglia::OrdineColonne() const
{
    QList<int> Ordine;
    for (int Posto = 0; Posto < horizontalHeader()->count(); ++Posto)
        Ordine += horizontalHeader()->logicalIndex(Posto);
    return Ordine;
}

void VistaGriglia::ImpostaOrdine(const QList<int>& Colonne)
{
    const QScopedValueRollback Guardia(Ordinando, true);
    for (qsizetype Posto = 0; Posto < Colonne.size(); ++Posto)
        horizontalHeader()->moveSection(horizontalHeader()->visualIndex(Colonne[Posto]), int(Posto));
    OrdinePrima = OrdineColonne();
}

/// A hidden column stays behind the one that it stood behind: a title dragged over it passes nothing that the
/// user can see.
void VistaGriglia::ColonnaSpostata()
{
    if (Ordinando)
        return;
    const QScopedValueRollback Guardia(Ordinando, true);
    for (qsizetype i = 1; i < OrdinePrima.size(); ++i) {
        if (!isColumnHidden(OrdinePrima[i]))
            continue;
        const int Da = horizontalHeader()->visualIndex(OrdinePrima[i]);
        const int Vicina = horizontalHeader()->visualIndex(OrdinePrima[i - 1]);
        horizontalHeader()->moveSection(Da, Da > Vicina ? Vicina + 1 : Vicina);
    }
    OrdinePrima = OrdineColonne();
}

int VistaGriglia::LarghezzaPiena(int Colonna) const
{
    if (!isColumnHidden(Colonna))
        return columnWidth(Colonna);
    return LarghezzeNascoste.value(Colonna, LarghezzaChiesta(Colonna));
}

void VistaGriglia::Stira()
{
    if (Stirando)
        return;
    const QScopedValueRollback Guardia(Stirando, true);
    int Resto = viewport()->width();
    QList<int> DaStirare;
    for (int i = 0; i < Righe->columnCount(); ++i) {
        if (isColumnHidden(i))
            continue;
        if (Righe->Colonne()[i].Stira)
            DaStirare += i;
        else
            Resto -= columnWidth(i);
    }
    for (qsizetype i = 0; i < DaStirare.size(); ++i) {
        const int Parte = Resto / int(DaStirare.size() - i);
        Resto -= Parte;
        const int Colonna = DaStirare[i];
        setColumnWidth(Colonna, std::max(Parte, LarghezzaStretta(Colonna)));
    }
}

int VistaGriglia::LarghezzaStretta(int Colonna) const
{
    return std::max(
        {LarghezzaChiesta(Colonna) - Margini, LarghezzaTitolo(Colonna), LarghezzeMinime.value(Colonna)});
}

void VistaGriglia::EsigiLarghezza(int Colonna, int Almeno)
{
    LarghezzeMinime[Colonna] = Almeno;
    if (isColumnHidden(Colonna) || columnWidth(Colonna) >= Almeno)
        return;
    if (Righe->Colonne()[Colonna].Stira && !Stirando)
        Stira();
    else
        setColumnWidth(Colonna, Almeno);
}

void VistaGriglia::StringiAlContenuto(const QList<int>& Colonne)
{
    for (const int Colonna : Colonne)
        if (!isColumnHidden(Colonna))
            setColumnWidth(Colonna,
                           std::max({LarghezzaTitolo(Colonna), sizeHintForColumn(Colonna) + Margini / 2,
                                     LarghezzeMinime.value(Colonna)}));
    Stira();
}

int VistaGriglia::LarghezzaColonne() const
{
    int Somma = 0;
    for (int i = 0; i < Righe->columnCount(); ++i)
        if (!isColumnHidden(i))
            Somma += Righe->Colonne()[i].Stira ? LarghezzaStretta(i) : columnWidth(i);
    return Somma;
}
