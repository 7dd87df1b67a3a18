// The compensation of the tariff of 2014: from the decree's media to minimum, medium and maximum in each
// bracket.
#pragma once

#include "creadati/tariffe.h"

/// Reads compensi55.csv and gradini55.csv into the amounts of `Dati`, whose offices, brackets and items are
/// known.
///
/// A row of the first is one figure of the decree's tables: a medium in euro between two values of the case,
/// with the percentages of its increase and decrease, or the percentage of the value that is beyond the row
/// before. It fills every bracket between its limits. A row of the second gives a bracket from another one:
/// the medium, raised by so much in the hundred. Every product is rounded to the cent, half a cent up.
///
/// What no row reaches stays without an amount.
/// @throws Errore 53 a table is missing, 5 it is refused
void LeggiCompensi(const QString& Cartella, Tariffe& Dati);
