// The request of the companion application: how it is sent, what it does to a new note, and the matter of a
// note that comes from a file.
#pragma once

#include "core/sessione.h"
#include "feenote/parcella.h"

#include <QString>

/// Cuts the request behind "PV2|N|" into the session's RichiestaPV2: seven fields, each followed by "|".
/// What stands behind the seventh is ignored. Numbers are in Italian form; Categoria, Autorita and
/// Scelta fit 16 bits, Scelta counts 0 when it does not begin with a number.
///
/// @return false when a "|" is missing or a number cannot be read (the latter is reported too); the
///         session's request is then empty
[[nodiscard]] bool LeggiRichiestaPV2(const QString& Testo);

/// Parties, parameters, reference and accounting counter of a request, into a new note, which stays new. A
/// client that is gone is told; what the lists do not hold is told once and stays unselected, the rest holds.
void ApplicaRichiesta(Parcella& Nota, const Richiesta& Dati);

/// A note that was read and belongs to a matter makes the session that of the matter, in an ordinary open
/// too. The running request goes with its matter: the note takes its accounting counter when they are of the
/// same, else one takes its place that has the reference alone. Nothing for a note without a reference.
void AdottaRiferimento(Parcella& Nota);
