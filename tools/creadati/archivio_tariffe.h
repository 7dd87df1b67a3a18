// parcelle.mdb and parcelle55.mdb: the reference databases that stand beside the program, one for each
// tariff.
#pragma once

#include "creadati/tariffe.h"

/// Creates the database: authorities, brackets, catalogues, the empty table of the older tariff's rights,
/// and the three empty tables that every fee note takes its columns from. A tariff with a name of its own has
/// that, its variations, the parties assisted and what corresponds to the tariff before in four more.
///
/// The same tables give the same bytes.
/// @throws Errore as CreateDatabase and Database::Execute
void ScriviTariffe(const Tariffe& Dati, const QString& Percorso);
