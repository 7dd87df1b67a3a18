// A composed document as plain text.
#pragma once

#include "platform/document/documento.h"

#include <QString>

/// Characters of a full line: the 17.6 cm between the usual margins at 5 characters per centimetre.
constexpr int ColonneTesto = 88;

/// Paragraphs and tables in order, lines ended by "\n", no blanks at line ends.
///
/// Paragraphs are wrapped at blanks at ColonneTesto; runs of blanks are kept, but for the one where a line
/// is broken. Centre and right are within ColonneTesto; justified text is not stretched.
///
/// A table's columns take their widths at 5 characters per centimetre, rounded, and their last character
/// stays blank, so that neighbours never touch. Long texts wrap inside their cell, from the top; a column
/// with a word or an amount wider than itself grows, so that nothing is cut. A spanning cell has the joint
/// width of its columns, the last of which grows for it. Lines of tables are not drawn.
///
/// What is struck out stands in "[barrato: ...]". Indents and tab stops take 5 characters per centimetre;
/// without stops a tab leads to the left indent where the first line hangs out of it, else to the next of
/// stops 6 characters apart. Room above and below paragraphs is left out, and so is the running line, which
/// needs pages.
[[nodiscard]] QString ScriviTesto(const Documento& Doc);
