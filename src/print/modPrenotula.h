// The pro-forma fee note, and its figures alone between two free texts.
#pragma once

#include "print/modCorpo.h"

/// The whole document, on an open one.
void ComponiPrenotula(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);
void ComponiSoloContabile(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);
