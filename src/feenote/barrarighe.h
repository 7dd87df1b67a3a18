// The toolbar between a catalogue and its lines, and the search in a catalogue.
#pragma once

#include "platform/recordset.h"

#include <QString>

#include <functional>

class Griglia;
class QLineEdit;
class QToolBar;
class QWidget;

/// Builds barListaOnoDir: "select" inserts the catalogue's current row; "lastrow" and "currentrow" choose
/// where new lines go and say so.
/// @param InsUltima the list's mode, which the two buttons show and set
void CostruisciBarraRighe(QToolBar* Barra, QWidget* Modulo, bool& InsUltima, std::function<void()> Inserisci);

/// Moves a recordset to a row by its number. @return false when there is no such row
bool VaiARiga(Recordset& Righe, int Riga);

/// Typing in the box moves the catalogue to the first row whose text contains it; Enter inserts nothing,
/// the down arrow goes to the list.
void CollegaRicerca(QLineEdit* Box, Griglia* Lista, std::function<Recordset()> Righe, const QString& Colonna);
