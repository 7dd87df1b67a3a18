// A document as the bytes of a file, and the file itself.
#pragma once

#include "platform/document/superficie.h"

#include <QByteArray>
#include <QString>

/// The kinds of file, by their number in the surface's ExportFormat.
enum class FormatoEsportazione {
    Html = 3,
    Word = 4,  ///< rich text, which a word processor opens whatever the file is called
};

/// A document as the bytes of a file: the same document always gives the same bytes.
/// @throws Errore 5 for a number that is no format
[[nodiscard]] QByteArray DocumentoEsportato(const Documento& Doc, FormatoEsportazione Formato,
                                            const QString& Titolo, const Carta& Foglio = {});

/// Writes such bytes into a file, as EsportaDocumento does. @throws Errore as that
bool ScriviEsportato(const QString& File, const QByteArray& Byte);

/// Writes a document into a file, which appears whole or not at all. A file that holds these very bytes is
/// left as it is, with its date.
/// @return true when the file was written
/// @throws Errore 70 open elsewhere, 75 refused, 76 no folder, 61 disk full, 5; what was there then stays
bool EsportaDocumento(const Documento& Doc, const QString& File, FormatoEsportazione Formato,
                      const QString& Titolo, const Carta& Foglio = {});
