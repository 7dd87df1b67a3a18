// The two invoices: the short one, a page of totals on paper with a printed letterhead, and the detailed one.
#pragma once

#include "print/modCorpo.h"

/// The whole document, on an open one.
void ComponiFatturaSintetica(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);
void ComponiFatturaAnalitica(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);

/// The two tables of the short invoice and, where it is due, the sentence of the subsidised regime. The
/// payments that it lists are those that it takes away.
void StampaSintetica(Superficie& vp, const Parcella& Nota);
