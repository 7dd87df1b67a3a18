// parcelle.mdb: the reference database that stands beside the program.
#pragma once

#include "creadati/tariffe.h"

/// Creates the database: authorities, brackets, catalogues, the empty table of the older tariff's rights,
/// and the three empty tables that every fee note takes its columns from.
///
/// The same tables give the same bytes.
/// @throws Errore as CreateDatabase and Database::Execute
void ScriviTariffe(const Tariffe& Dati, const QString& Percorso);
