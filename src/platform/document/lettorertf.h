// Reads rich text into paragraphs.
#pragma once

#include "platform/document/superficie.h"

#include <QStringView>

#include <vector>

/// What a rich text may yield. The rest of a longer one is left out: it is no text that somebody wrote.
constexpr qsizetype MassimoCaratteriRtf = 1000 * 1000;
constexpr std::size_t MassimoParagrafiRtf = 50 * 1000;
/// Changes of font in one paragraph; beyond them its text goes on in the last one. Laying out a line takes
/// time with the square of their number.
constexpr std::size_t MassimoTrattiRtf = 500;

/// Paragraphs of a rich text, in order. Any text gives some result: what is damaged or unknown is passed
/// over, what breaks off gives what there was up to there, and what begins without "{\rtf" gives nothing.
/// Time grows with the length alone, whatever stands in it.
///
/// Read: fonts, sizes, bold, italics, underline, capitals; alignment, indents, room above and below; line,
/// page and paragraph ends, tabs; code pages 1252, 1250, 437, 850, 10000 and UTF-8 and what fonts say of
/// theirs (an unknown one counts as 1252), Unicode with its substitutes. Numbers and bullets of lists come as
/// the text that their writer left for them, a row of a table as a paragraph with its cells divided by tabs.
/// Left out: hidden and deleted text, colours, pictures, objects, notes, headers and footers, field
/// instructions.
[[nodiscard]] std::vector<Paragrafo> LeggiRtf(QStringView Testo);
