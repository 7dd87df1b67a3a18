// The menu of a grid's rows and cells.
#pragma once

class Griglia;
class QPoint;
class VistaGriglia;

/// What of the menu a grid has use for.
struct OffertaMenu
{
    bool Comandi = false;   ///< cut, copy, paste, undo of rows
    bool Nuove = false;     ///< a row may be begun
    bool Cancella = false;  ///< rows may be deleted
};

/// Shows beside a point what may be done with the selected rows, with the text of the current cell and with
/// the whole table. Where rows are changed, the row asked about is selected first, alone, unless it is among
/// the selected ones.
/// @param Riga -1 none
void ApriMenuRighe(Griglia* Padrona, VistaGriglia* Vista, int Riga, const QPoint& Punto,
                   const OffertaMenu& Offerta);
