// What the grids of lines share: columns, cell rules, the keys of cells.
#pragma once

#include "platform/grid/griglia.h"

/// A column of dates, quantities or amounts as the lines have them. A date that is none, a number that is
/// none or is too large are told and refused. An amount is kept to the cent, as it is shown and saved, or the
/// sums would change when the note is opened again; an emptied cell of numbers is kept as empty text.
[[nodiscard]] ColonnaGriglia ColonnaData(int Campo);
[[nodiscard]] ColonnaGriglia ColonnaDescrizione(int Campo);
[[nodiscard]] ColonnaGriglia ColonnaQuantita(int Campo);
[[nodiscard]] ColonnaGriglia ColonnaImporto(const QString& Titolo, int Campo, bool Modificabile);

/// Whether a text can be taken as a date of a line: valid, month not above 12, or empty.
[[nodiscard]] bool DataDiRiga(const QString& Testo);
