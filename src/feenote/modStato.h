// The state of a note: which event leads where.
//
// An event leads to a later state, never to an earlier one. A state goes back by itself only where its cause
// goes: payments that no longer cover the net, the number or date of an invoice that is taken away. What the
// user has chosen holds until the next event that leads further.
#pragma once

#include "feenote/modPagamenti.h"
#include "feenote/parcella.h"

/// A document has gone out: printed, exported, sent. The note is sent; invoiced, where the document is an
/// invoice with number and date. Contract and information statement ask for nothing, and change nothing.
/// @param Tipo the document, a TipoStampa
/// @return true when the note has changed; it is then modified
bool NotaInviata(Parcella& Nota, int Tipo);

/// The electronic file of the note's invoice was written. @return as NotaInviata
bool NotaFatturata(Parcella& Nota);

/// The user's own choice. What has gone out is kept for when another choice puts it right, and counts for
/// nothing while the note is a draft. @return as NotaInviata
bool ScegliStato(Parcella& Nota, StatoNota Scelto);

/// A draft without what it had gone out by, as a save keeps it; any other state as it is. Both keep the
/// associated note.
[[nodiscard]] StatoTenuto SoloBozza(const StatoTenuto& Tenuto);

/// The record was worked on: payments that cover the net by now make the note paid, and give its former
/// state back when they no longer do; an invoice without its number is no invoice until it has one again.
/// @param Vista the payments when this was asked last, brought up to date
/// @return as NotaInviata
bool SegueStato(Parcella& Nota, Copertura& Vista);
