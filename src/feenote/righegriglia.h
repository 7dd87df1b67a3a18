// What the grids of lines share: columns, cell rules, the keys of cells.
#pragma once

#include "platform/griglia.h"

/// A column of dates, quantities or amounts as the lines have them.
[[nodiscard]] ColonnaGriglia ColonnaData(int Campo);
[[nodiscard]] ColonnaGriglia ColonnaDescrizione(int Campo);
[[nodiscard]] ColonnaGriglia ColonnaQuantita(int Campo);
[[nodiscard]] ColonnaGriglia ColonnaImporto(const QString& Titolo, int Campo, bool Modificabile);

/// The check of a typed cell: a date that is none and an amount that is no number are told and refused.
[[nodiscard]] bool ConvalidaCella(const ColonnaGriglia& Colonna, const QString& Testo);

/// Whether a text can be taken as a date of a line: valid, month not above 12, or empty.
[[nodiscard]] bool DataDiRiga(const QString& Testo);
