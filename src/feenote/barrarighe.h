// The toolbar between a catalogue and its lines, and the search in a catalogue.
#pragma once

#include "platform/recordset.h"

#include <QString>

#include <functional>

class Griglia;
class QAction;
class QLineEdit;
class QToolBar;
class QWidget;

/// Adds a button with the picture of its key, called <bar>_<key>; the keyboard reaches it.
QAction* AggiungiTasto(QToolBar* Barra, const QString& Chiave, const QString& Suggerimento);

/// Builds barListaOnoDir: "select" inserts the catalogue's current row, "info" shows its sheet; "lastrow" and
/// "currentrow" choose where new lines go and say so. The keyboard reaches every button.
/// @param InsUltima the list's mode, which the two buttons show and set
/// @param Informa empty: the list has no sheets, and no such button
void CostruisciBarraRighe(QToolBar* Barra, QWidget* Modulo, bool& InsUltima, std::function<void()> Inserisci,
                          std::function<void()> Informa = {});

/// Puts the buttons of a toolbar between two grids in the tab order.
void SeguiBarra(const Griglia* Prima, const QToolBar* Barra, const Griglia* Dopo);

/// Moves a recordset to a row by its number. @return false when there is no such row
bool VaiARiga(Recordset& Righe, int Riga);

/// Typing in the box moves the catalogue to the first row whose text contains it. Enter inserts nothing: like
/// the down arrow it goes to the list.
void CollegaRicerca(QLineEdit* Box, Griglia* Lista, std::function<Recordset()> Righe, const QString& Colonna);
