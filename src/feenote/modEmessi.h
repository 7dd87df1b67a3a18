// The documents that have gone out of a note's file, by number and date, and which of them the one in hand
// is.
#pragma once

#include "feenote/parcella.h"

#include <optional>

/// Number and date of a note's invoice as they count; both empty where it has none.
struct NumeroEmesso
{
    QString Numero;
    QString Data;  ///< dd/mm/yyyy

    /// "12" and "12/2026" of one day are one number.
    friend bool operator==(const NumeroEmesso& A, const NumeroEmesso& B);
};
[[nodiscard]] NumeroEmesso NumeroInMano(const Parcella& Nota);

/// A document has gone out and counts.
[[nodiscard]] bool EUscita(const StatoTenuto& Tenuto);

/// The place of the note's document among those before the last one, -1 where it is none of them: a copy of
/// it changes nothing.
[[nodiscard]] qsizetype PostoEmesso(const Parcella& Nota);

/// The note's document is the one that has gone out last.
[[nodiscard]] bool EUltimo(const Parcella& Nota);

/// The electronic file of the document that has gone out last is written: it stands, and another number is
/// that of another one.
[[nodiscard]] bool HaFile(const Parcella& Nota);

/// The electronic file of the document in hand is written, be it that of an earlier invoice of the same note.
[[nodiscard]] bool HaFileScritto(const Parcella& Nota);

/// What goes out is another document than the last one, which stands beside it: a credit note, the invoice
/// behind one, an invoice of another number where the file of the last one is written.
[[nodiscard]] bool EAltroDocumento(const Parcella& Nota, bool Storno);

/// The former document of the same kind that the one in hand may have been made for, because the exchange
/// system has discarded it: its file is written, that of the one in hand is not, and number or total are the
/// same. Nobody but the user knows.
[[nodiscard]] std::optional<NumeroEmesso> ForseScartato(const Parcella& Nota);
/// The user has said so: the one in hand, which is to be written next, stands in its place instead of beside
/// it, and what was paid since is paid of it. Only where ForseScartato names one.
void PrendiIlPosto(Parcella& Nota);
