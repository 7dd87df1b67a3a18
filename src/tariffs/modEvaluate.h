// Value of an arithmetic text in the variable x: the formulas of the extrajudicial tariff.
//
// Two stacks, no parse tree, no state between calls. The grammar is small and its oddities are relied
// upon by nothing but kept as they are: a malformed text gives a number and no complaint, a leading
// minus takes the whole text to the next closing parenthesis ("-x+1" is -(x+1)), 2^3^2 is 64.
#pragma once

#include <QString>

/// Value of `Testo` at `x`.
///
/// @param Errore out: 0, or a code of MessaggioErrore (1 to 7, 18); then the result is 0
/// @note  Code 18 (a result that is not finite, more than 200 places on a stack) also shows "overflow".
[[nodiscard]] double ValutaEspressione(const QString& Testo, double x, int& Errore);

/// English text of a code, as shown; empty for 8 to 10 and for anything outside 0 to 18.
[[nodiscard]] QString MessaggioErrore(int Errore);
