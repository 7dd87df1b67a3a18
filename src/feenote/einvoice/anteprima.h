// The electronic invoice as whoever receives it reads it.
#pragma once

#include "feenote/einvoice/fattura.h"

/// One page of HTML for a rich-text view: parties, document, lines, sums, payment. Every text is escaped; no
/// colour is set but that of rules, so that it can be read on light and dark ground.
[[nodiscard]] QString PaginaFattura(const FatturaElettronica& Fattura);
