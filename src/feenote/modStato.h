// The state of a note: which event leads where.
//
// An event leads to a later state, never to an earlier one. A state goes back by itself only where its cause
// goes: payments that no longer cover the net, the number or date of an invoice that is taken away. What the
// user has chosen holds until the next event that leads further.
#pragma once

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

/// Whether the payments on account cover what the note asks for.
struct Copertura
{
    bool Coperta = false;
    double Pagati = 0.0;  ///< sum of the payments, euro without taxes

    friend bool operator==(const Copertura&, const Copertura&) = default;
};
/// They do when nothing is left of a net above 0: that of the document that has gone out and asks for money,
/// whatever its lines came to since, else that of the note. All payments count, whether or not the document
/// lists them.
[[nodiscard]] Copertura CoperturaDi(const Parcella& Nota);

/// The record was worked on: payments that cover the net by now make the note paid, and give its former
/// state back when they no longer do; an invoice without its number is no invoice until it has one again.
/// @param Vista the payments when this was asked last, brought up to date
/// @return as NotaInviata
bool SegueStato(Parcella& Nota, Copertura& Vista);

/// The document that a list of notes names: the one that has gone out, else the one in view. A state that was
/// chosen by hand says nothing of a document in view that asks nobody for money: -1.
[[nodiscard]] int DocumentoDelloStato(int Uscito, int InVista, StatoNota Stato);

/// What a list of notes shows: the figures of the document that has gone out, else of the one in view. Those
/// of a paid note without a document are without its payments, or there would be nothing to pay.
[[nodiscard]] ImportiDocumento ImportiDellaNota(const Parcella& Nota);

/// Of each document that counts, the oldest first (those of Stato.Emessi and, last, the one in hand): what is
/// left of its net after the payments that it has not taken away itself, never below 0;
/// whatever the state. A payment is spent once: on what has gone out before first, see RestiDeiDocumenti.
/// Payments of the associated note count for a document of both, those seen last while nothing is associated.
[[nodiscard]] QList<double> RestiDellaNota(const Parcella& Nota);

/// A document of this note and of the associated one has gone out.
[[nodiscard]] bool UscitaConSocio(const Parcella& Nota);
/// The associated note as its figures count: as it is now, else as it was seen last; nothing for a note that
/// names none and has gone out alone.
[[nodiscard]] std::optional<SocioTenuto> SocioDellaNota(const Parcella& Nota);
/// Keeps it, before the association goes.
void TieniSocio(Parcella& Nota);

/// True for a document that asks the client for money: neither an estimate nor what goes to the judge is
/// owed.
[[nodiscard]] bool ChiedePagamento(int Tipo);
