// What the writers of documents ask about a table.
#pragma once

#include "platform/document/superficie.h"

#include <cstddef>
#include <vector>

using RigaTabella = std::vector<Cella>;

/// Columns that the cell at this place covers; at least itself, at most to the last.
[[nodiscard]] std::size_t ColonneCoperte(const RigaTabella& Riga, std::size_t Colonna);

/// No cell has a text.
[[nodiscard]] bool RigaBianca(const RigaTabella& Riga);

/// Nothing but rules ("____"): the figures below belong to those above.
[[nodiscard]] bool RigaDiFiletti(const RigaTabella& Riga);

/// Rows at the top that a new page repeats: the headings and the blank row below them, when the table begins
/// so and has more; else none.
[[nodiscard]] std::size_t RigheDiTitoli(const Tabella& Questa);

/// The room that a cell's text leaves free on either side, in centimetres. Without lines the whole gap stands
/// before a column, as on the printed page: amounts end where their column does.
struct MarginiCella
{
    double PrimaCm = 0.0;
    double DopoCm = 0.0;
};
[[nodiscard]] MarginiCella MarginiDi(const Tabella& Questa, std::size_t Colonna);

/// Widths of the columns in centimetres, in proportion where together they are wider than that; none is wider
/// than 55 cm, the widest sheet that word processors know. A column too narrow for one of its numbers takes
/// the room from the others, as on the printed page; a number's width is reckoned by the digits of the usual
/// fonts.
[[nodiscard]] std::vector<double> LarghezzeEntro(const Tabella& Questa, double MassimaCm);

/// A row together with the one below it, on the same page.
[[nodiscard]] bool UnitaAllaSeguente(const Tabella& Questa, std::size_t Riga);

/// Centimetres between the margins of a sheet; two at least.
[[nodiscard]] double LarghezzaTestoCm(const Documento& Doc, const Carta& Foglio);
