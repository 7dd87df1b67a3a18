// What the writers of documents ask about a table.
#pragma once

#include "platform/document/righetabella.h"

#include <cstddef>
#include <vector>

/// The room that a cell's text leaves free on either side, in centimetres. Without lines the whole gap stands
/// before a column, as on the printed page: amounts end where their column does.
struct MarginiCella
{
    double PrimaCm = 0.0;
    double DopoCm = 0.0;
};
/// @param Lineata of the table: ConLinee, which looks at every cell and is asked once
[[nodiscard]] MarginiCella MarginiDi(std::size_t Colonna, bool Lineata);

/// Widths of the columns in centimetres, in proportion where together they are wider than that; none is wider
/// than 55 cm, the widest sheet that word processors know. A column too narrow for one of its numbers takes
/// the room from the others, as on the printed page; a number's width is reckoned by the digits of the usual
/// fonts.
[[nodiscard]] std::vector<double> LarghezzeEntro(const Tabella& Questa, double MassimaCm);

/// A table that takes so little of a page that it is not divided; its height is reckoned as the pages would
/// have it.
[[nodiscard]] bool TabellaIntera(const Tabella& Questa, const Documento& Doc, const Carta& Foglio);

/// A row together with the one below it, on the same page.
/// @param Intera of the table: TabellaIntera
[[nodiscard]] bool UnitaAllaSeguente(const Tabella& Questa, std::size_t Riga, bool Intera);

/// Centimetres between the margins of a sheet; two at least.
[[nodiscard]] double LarghezzaTestoCm(const Documento& Doc, const Carta& Foglio);
