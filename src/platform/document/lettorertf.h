// Reads rich text into paragraphs and tables.
#pragma once

#include "platform/document/documento.h"

#include <QStringView>

#include <vector>

/// What a rich text may yield. The rest of a longer one is left out: it is no text that somebody wrote.
constexpr qsizetype MassimoCaratteriRtf = 1'000'000;
constexpr std::size_t MassimoParagrafiRtf = 50'000;  ///< those of cells included
/// Changes of font in one paragraph; beyond them its text goes on in the last one. Laying out a line takes
/// time with the square of their number.
constexpr std::size_t MassimoTrattiRtf = 500;
constexpr std::size_t MassimoFermiRtf = 32;  ///< tab stops of one paragraph

/// True for a rich text: "{\rtf" behind nothing, or behind blanks.
[[nodiscard]] bool ComeRtf(QStringView Testo);

/// Paragraphs and tables of a rich text, in order. Any text gives some result: what is damaged or unknown is
/// passed over, what breaks off gives what there was up to there, and what is no rich text gives nothing.
/// Time grows with the length alone, whatever stands in it.
///
/// Read: fonts, sizes, bold, italics, underline, capitals, text struck out, raised and lowered; alignment,
/// indents, tab stops with what fills them, room above and below, distance of lines; line, page and paragraph
/// ends, tabs; tables with their widths and lines; code pages 1252, 1250, 437, 850, 10000 and UTF-8 and what
/// fonts say of theirs (an unknown one counts as 1252), Unicode with its substitutes. Numbers and bullets of
/// lists come as the text that their writer left for them, a table inside a cell as a text with tabs. Left
/// out: hidden and deleted text, colours, pictures, objects, notes, headers and footers, field instructions.
[[nodiscard]] std::vector<BloccoDocumento> LeggiRtf(QStringView Testo);
