// A composed document as rich text, which word processors open.
#pragma once

#include "platform/document/documento.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Bytes of a file: ASCII alone, lines ended by CR LF. The same document gives the same bytes.
///
/// Paragraphs keep alignment, fonts, indents and runs of blanks, in which every other blank is a hard one; a
/// line break stays within its row.
/// Characters beyond 1252 are written by number with "?" for readers that do not know them, control
/// characters left out, half a surrogate pair as U+FFFD.
///
/// Tables stand from the left margin with the widths of their columns, made narrower in proportion where they
/// would pass the right one, wider where a number would be broken. Rows do not split; headings above a blank
/// row repeat on each page; a row of rules ("____") is low and stands with the rows around it. The running
/// line is the page's footer, its "%d" the page number.
[[nodiscard]] QByteArray ScriviRtf(const Documento& Doc, const QString& Titolo = {},
                                   const Carta& Foglio = {});

/// True for bytes that ScriviRtf has written, whatever the document. A word processor that saves them begins
/// in its own way.
[[nodiscard]] bool EScrittoDaNoi(QByteArrayView Byte);
