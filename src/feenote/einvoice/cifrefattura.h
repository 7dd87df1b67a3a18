// What the figures of a note must be for an electronic invoice to hold them.
#pragma once

#include "feenote/einvoice/fattura.h"
#include "feenote/einvoice/raccolta.h"
#include "feenote/modTotali.h"

/// The figures of an invoice as the note gives them.
struct CifreFattura
{
    const Parcella& Nota;
    const Catena& Conti;  ///< of the note for the print type of the invoice
    const SceltaFattura& Scelta;
    QString Regime;  ///< of the office; empty: none that is known
};

/// An amount in cents, for sums that must agree.
[[nodiscard]] qint64 Centesimi(double Euro);

/// The VAT of the invoice is due when it is paid.
[[nodiscard]] bool PerCassa(const CifreFattura& Cifre);

/// Percentages, regime and sums: what the file cannot hold is missing, what does not agree is told.
/// @return false when no lines can be made of the figures
[[nodiscard]] bool ControllaCifre(const CifreFattura& Cifre, Raccolta& Note);
