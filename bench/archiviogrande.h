// The archive of a large office, for the measures of the address book, its search and the names that a note
// offers.
#pragma once

#include <QString>

/// The delivered archive with that many clients, each column filled as an office fills it: names, towns and
/// addresses repeat, each with what tells it apart. It is made once and goes with the benchmark.
[[nodiscard]] QString ArchivioGrande(int Nominativi);
