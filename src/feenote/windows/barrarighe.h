// The toolbar between a catalogue and its lines, and the search in a catalogue.
#pragma once

#include "platform/database/recordset.h"

#include <QString>

#include <functional>

class Griglia;
class QAction;
class QLineEdit;
class QToolBar;
class QWidget;

/// Adds a button with the picture of its key, called <bar>_<key>; the keyboard reaches it.
QAction* AggiungiTasto(QToolBar* Barra, const QString& Chiave, const QString& Suggerimento);

/// What the buttons of barListaOnoDir do. An empty one leaves its button out.
struct ComandiBarra
{
    std::function<void()> Inserisci;  ///< "select": the catalogue's current row
    std::function<void()> Informa;    ///< "info"
    std::function<void()> Varia;      ///< "variaz", which stays down while its panel is open
    std::function<void()> Taglia;
    std::function<void()> Copia;
    std::function<void()> Incolla;
    std::function<void()> Annulla;
    std::function<void()> Aiuto;  ///< "help"
};

/// Builds barListaOnoDir; behind the commands "lastrow" and "currentrow" choose where new lines go and say
/// so. A command runs once the open cell and the box in edit are left, and not when one of them refuses.
/// @param InsUltima the list's mode, which the two buttons show and set
void CostruisciBarraRighe(QToolBar* Barra, QWidget* Modulo, bool& InsUltima, const ComandiBarra& Comandi);

/// Puts the buttons of a toolbar between two grids in the tab order.
void SeguiBarra(const Griglia* Prima, const QToolBar* Barra, const Griglia* Dopo);

/// Moves a recordset to a row by its number. @return false when there is no such row
bool VaiARiga(Recordset& Righe, int Riga);

/// Typing in the box moves the catalogue to the first row whose text contains it. Enter inserts nothing: like
/// the down arrow it goes to the list.
void CollegaRicerca(QLineEdit* Box, Griglia* Lista, std::function<Recordset()> Righe, const QString& Colonna);
