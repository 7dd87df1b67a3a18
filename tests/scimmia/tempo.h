// The time of a monkey: it passes with its events alone, so that a seed does the same on every machine, and
// nobody sits out a pause.
#pragma once

/// From now on the steady clock of this thread stands still, but for TempoPassa and for its own sleeping.
void FermaTempo();
void TempoPassa(int Ms);
/// Lets the other threads work, and takes none of that time.
void AttendiGliAltri(int Ms);
