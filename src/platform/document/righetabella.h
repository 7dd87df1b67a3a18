// What the rows of a table are, told by their shape: paginator and writers break pages by it.
#pragma once

#include "platform/document/documento.h"

#include <cstddef>
#include <vector>

using RigaTabella = std::vector<Cella>;

/// A table that may stand whole and takes no more than this part of a page is not divided.
constexpr double QuotaTabellaIntera = 0.5;

/// Rules are as low as this part of a line of text, since figures above and below belong together.
constexpr double QuotaRigaFiletti = 0.6;

/// Columns that the cell at this place covers; at least itself, at most to the last.
[[nodiscard]] std::size_t ColonneCoperte(const RigaTabella& Riga, std::size_t Colonna);

/// No text in it.
[[nodiscard]] bool CellaBianca(const Cella& Questa);
[[nodiscard]] bool RigaBianca(const RigaTabella& Riga);

/// A rule: nothing but "____".
[[nodiscard]] bool CellaFiletto(const Cella& Questa);
/// Nothing but rules, so that the figures below belong to those above; never in a table of a rich text.
[[nodiscard]] bool RigaDiFiletti(const Tabella& Questa, std::size_t Riga);

/// Rows at the top that a new page repeats: the headings and the blank row below them, when the table begins
/// so and has more; else none.
[[nodiscard]] std::size_t RigheDiTitoli(const Tabella& Questa);

/// Has no headings, which a new page would repeat, or so few rows that nobody looks for them on two pages.
[[nodiscard]] bool PuoStareIntera(const Tabella& Questa);

/// No page begins with this row. The headings do not end a page, nor does the first line of a table nor the
/// last one begin one, be it set off as a sum by a blank row; a rule stands between the row above and the one
/// below.
/// @param Intera the table may stand whole and takes no more than its part of a page
[[nodiscard]] bool UnitaAllaPrecedente(const Tabella& Questa, std::size_t Riga, bool Intera);

/// Some side of some cell is drawn.
[[nodiscard]] bool ConLinee(const Tabella& Questa);
/// Sides of a cell that are drawn, a sum of Cella::Lato.
[[nodiscard]] int LineeDi(const Tabella& Questa, const Cella& Quale);
