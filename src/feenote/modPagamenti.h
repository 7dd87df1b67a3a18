// What the documents of a note ask for, what was paid of each, and what is left of it.
#pragma once

#include "feenote/parcella.h"

#include <QList>

#include <optional>

/// An amount as the file holds it, euro, so that a note read back equals the one that was written.
[[nodiscard]] double AlCentesimo(double Euro);

/// What a document asks for as it goes out now, with what it takes away of the associated note's payments.
/// @param Tipo a TipoStampa
/// @param Numerata it goes out as an invoice with number and date
[[nodiscard]] ImportiDocumento ImportiInUscita(const Parcella& Nota, int Tipo, bool Numerata);

/// What the credit notes of a file that has gone out take back of each of its documents, euro, as
/// RestiDellaNota orders them.
[[nodiscard]] QList<double> RipresiDellaNota(const StatoTenuto& Tenuto);

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
