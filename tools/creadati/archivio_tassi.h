// Tassi.dat: legal and default interest, price indices and the coefficients between their bases.
#pragma once

#include "creadati/tassi.h"

/// Creates the archive with the tables InteressiLegali, InteressiMora (index Dal), IndiciIstat (index Indice)
/// and CoefficientiRaccordo.
/// @throws Errore as CreateDatabase and Database::CreaTabella
void ScriviTassi(const Tassi& Dati, const QString& Percorso);
