// A composed document as plain text.
#pragma once

#include "platform/superficie.h"

#include <QString>

/// Characters of a full line: the 17.6 cm between the usual margins at 5 characters per centimetre.
constexpr int ColonneTesto = 88;

/// Paragraphs and tables in order, lines ended by "\n", no blanks at line ends.
///
/// Paragraphs are wrapped at blanks at ColonneTesto; runs of blanks are kept. A table's columns take their
/// widths at 5 characters per centimetre and grow where a word or an amount is wider, so that nothing is cut;
/// long texts wrap inside their cell. The running line needs pages and is left out.
[[nodiscard]] QString ScriviTesto(const Documento& Doc);
