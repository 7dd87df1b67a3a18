// Exports of a composed document, and the buttons of the print tab that lead to them.
#pragma once

#include "core/posti.h"
#include "feenote/parcella.h"
#include "platform/base/errore.h"
#include "platform/document/superficie.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

/// The kinds of file, by their number in the surface's ExportFormat.
enum class FormatoEsportazione {
    Html = 3,
    Word = 4,  ///< rich text, which a word processor opens whatever the file is called
};

/// A document as the bytes of a file: the same document always gives the same bytes.
/// @throws Errore 5 for a number that is no format
[[nodiscard]] QByteArray DocumentoEsportato(const Documento& Doc, FormatoEsportazione Formato,
                                            const QString& Titolo, const Carta& Foglio = {});

/// Writes a document into a file, which appears whole or not at all. A file that holds these very bytes is
/// left as it is, with its date.
/// @return true when the file was written
/// @throws Errore 70 open elsewhere, 75 refused, 76 no folder, 61 disk full, 5; what was there then stays
bool EsportaDocumento(const Documento& Doc, const QString& File, FormatoEsportazione Formato,
                      const QString& Titolo, const Carta& Foglio = {});

/// Chooses where a composition is exported to: the surface's ExportFile and ExportFormat.
///
/// @param Invio for the companion application: the stem with ".htm" in this folder, which is its own. An
/// empty
///        one is told, and the last target stays.
void PreparaEsportazione(Superficie& vp, int Indice, const std::optional<QString>& Invio);

/// One composition of the print tab: target, Anteprima, export on the paper in use.
///
/// @return what kept the export from being written; none when it stands, or when nothing was composed. With
///         Invio it has been told already; a redraw passes over it.
/// @throws Errore of the composition; then nothing is exported
std::optional<Errore> AnteprimaConEsportazione(Superficie& vp, const Parcella& Nota, int Tipo, int Indice,
                                               const std::optional<QString>& Invio = {},
                                               const Carta& Foglio = {});

/// The button "word", on FileDocumento: tells that the file is in use, or recomposes, and opens it by
/// "printword". A file that is missing then is told, and so is one that could not be brought up to date: it
/// is not opened.
/// @param Ricomponi the window's composition, which gives what AnteprimaConEsportazione did; a failure that
/// it
///        throws is told
void EsportaInWord(int Indice, const std::function<std::optional<Errore>()>& Ricomponi);

/// The button "wp": opens the word-processor file in the alternative editor of the settings; nothing while
/// there is none.
void AvviaEditor(int Indice);
