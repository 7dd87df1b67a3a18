// The counter of invoices: the number that it proposes to a note, and its step.
#pragma once

#include "feenote/parcella.h"

/// Largest number of an invoice: the counter is read back from a setting of 16 bits.
constexpr int UltimoProgFatt = 32767;

/// The number of the invoice as its paper and its electronic file bear it: with the year of its date behind
/// it, unless it ends in that, has no digit or no date.
[[nodiscard]] QString NumeroDellaFattura(const Parcella& Nota);
/// The number of an invoice as it is compared: the box says "12", paper and electronic file "12/2026".
[[nodiscard]] QString NumeroSenzaAnno(const QString& Numero, const QDate& Giorno);

/// Number and date of the invoice from the counter, as the settings hold it now, and the day's date
/// ("dd/mm/yyyy"); the note is then modified. A note that has either already, a counter at its end, one
/// that is no number of an invoice, and one that was lost with damaged settings are told and stay as they
/// are.
/// @return true when the note was numbered
[[nodiscard]] bool NumeraFattura(Parcella& Nota);

/// Asks whether the counter follows the number just proposed, and on yes stores it at once; the counter
/// of another program that has gone further meanwhile stays. Nothing ties it to the save of the note.
/// @throws Errore 75 when the setting cannot be written; the counter is then as before
void AggiornaProgFatt();
