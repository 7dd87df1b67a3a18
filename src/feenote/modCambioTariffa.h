// A note that goes over to another decree.
#pragma once

#include "feenote/parcella.h"

/// The note follows another decree from now on. Lines in place are asked about as for another authority; they
/// keep what they are under the items that both decrees have, and wait for a recalculation. Category, value
/// and free variation stay, the office where the other decree has it; what a new note would have in the
/// general expenses follows if it was as a new note has it. A database that cannot be used, of
/// either decree, is told and nothing moves; that of the former one matters only to a note that has an office
/// or lines.
/// An option of the variation and parties that count for nothing there are named in the question, and bring
/// one where there are no lines.
/// @return false when it was refused
bool CambiaTariffa(Parcella& Nota, const Decreto& Nuova);

/// What CambiaTariffa does, telling where that asks, and without marking the note: for one that is still
/// being filled. A database that cannot be used is told, and the note stays as it was.
void PortaSuTariffa(Parcella& Nota, const Decreto& Nuova);
