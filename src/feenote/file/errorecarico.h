// What a reading of a note's file ends in.
#pragma once

#include "platform/base/errore.h"

struct Decreto;

/// Why a note was not read.
struct ErroreCarico : Errore
{
    const Decreto* Tariffa;  ///< of the file; of new notes where the file did not say

    ErroreCarico(const Errore& Guasto, const Decreto* Sua) : Errore(Guasto), Tariffa(Sua) {}
};
