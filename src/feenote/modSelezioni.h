// What a note's file has chosen from the lists of its reference database, which may have been edited since.
#pragma once

#include "feenote/parcella.h"

/// The office and the bracket that a file names by their numbers: a list that was edited since has them
/// elsewhere. What it lacks is told, stays unselected and is kept for the next save.
void VerificaSelezioni(Parcella& Nota, const SceltaTenuta& Ufficio, const SceltaTenuta& Fascia);
