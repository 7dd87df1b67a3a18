// The fee agreement with the client (c.c. art. 2233, L. 247/2012 art. 13) and the signed statement that the
// client was informed.
//
// Parties, subject and amounts are composed here; the clauses stand in a file of rich text in the folder
// "doc" of the program, or "clausole" of the user, one for a person and one for a company, which is appended
// as it is. A file that is missing leaves its clauses out.
#pragma once

#include "print/modCorpo.h"

/// The whole document, on an open one. Narrow margins hold for all its pages.
void ComponiContratto(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);
void ComponiInformativa(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);
