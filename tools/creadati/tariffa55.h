// What a tariff says of itself beside its amounts: its name, its variations, the parties assisted, what it
// has in common with the one before.
#pragma once

#include "creadati/tariffe.h"

/// Reads tariffa55.csv, variazioni55.csv, parti55.csv and corrispondenze55.csv into `Dati`, whose offices and
/// items are known.
///
/// @throws Errore 53 a table is missing, 5 it is refused: a sentence without one place for the percent,
/// limits of
///         which the second is farther from nothing than the first, an office or an item that is none of the
///         category's, parties that leave a gap
void LeggiParticolari(const QString& Cartella, Tariffe& Dati);
