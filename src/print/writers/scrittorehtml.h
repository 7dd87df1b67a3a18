// A composed document as one HTML page.
#pragma once

#include "platform/document/documento.h"

#include <QByteArray>
#include <QString>

/// UTF-8, nothing outside the file is referred to; the text is well-formed XML too. The same document gives
/// the same bytes.
///
/// Shown as a sheet of the paper's width on any screen, printed on that paper with the document's margins.
/// Paragraphs keep alignment, fonts, indents and runs of blanks; tables are tables, their headings in a
/// thead, which browsers repeat on each page. Browsers that know page counters print the running line.
[[nodiscard]] QByteArray ScriviHtml(const Documento& Doc, const QString& Titolo = {},
                                    const Carta& Foglio = {});
