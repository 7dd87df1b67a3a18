// From a fee note, the office and the client to the electronic invoice. Nothing is read here, neither
// settings nor archive.
#pragma once

#include "feenote/einvoice/fattura.h"
#include "feenote/parcella.h"

/// A document, what is missing to it, and what the user should know of it.
struct Composizione
{
    FatturaElettronica Fattura;
    QList<MancanzaFattura> Mancanze;
    QList<AvvisoFattura> Avvisi;

    [[nodiscard]] bool Completa() const { return Mancanze.isEmpty(); }
};

/// What the note says of its invoice: the chosen print type, number and date. The number has the year of the
/// date behind it ("12" is "12/2026") unless it ends with it; everything else is as a new SceltaFattura has
/// it.
[[nodiscard]] SceltaFattura SceltaDaNota(const Parcella& Nota);

/// Composes the document. Its sums are those of CatenaFiscale for the note and the chosen print type, so that
/// paper and file agree to the cent; what cannot be expressed is a sentence among Mancanze. The document can
/// be shown whatever is missing, and written once nothing is.
///
/// @param Oggi a later date of the invoice is refused
[[nodiscard]] Composizione ComponiFatturaElettronica(const Parcella& Nota, const Cedente& Studio,
                                                     const Cessionario& Cliente, const SceltaFattura& Scelta,
                                                     const QDate& Oggi);
