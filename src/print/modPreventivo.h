// The estimate that the law wants the lawyer to give the client (L. 247/2012 art. 13, paragraph 5).
#pragma once

#include "print/modCorpo.h"

/// The whole document, on an open one.
void ComponiPreventivo(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);
