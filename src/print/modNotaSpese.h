// The costs note that is filed in court. It has the court's heading in place of the office's head.
#pragma once

#include "print/modCorpo.h"

/// The whole document, on an open one.
void ComponiNotaSpese(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);
