// A composition and the file that it is exported to.
#pragma once

#include "feenote/parcella.h"
#include "platform/document/superficie.h"

#include <QString>

#include <optional>

struct Errore;

/// Chooses where a composition is exported to: the surface's ExportFile and ExportFormat.
///
/// @param Stelo name of the file without path and extension
/// @param Invio for the companion application: the stem with ".htm" in this folder, which is its own. An
/// empty
///        one is reported, and the last target stays.
void PreparaEsportazione(Superficie& vp, const QString& Stelo, const std::optional<QString>& Invio);

/// One composition of the print tab: target, Anteprima, export on the paper in use.
///
/// @return what kept the export from being written; none when it stands, or when nothing was composed. With
///         Invio it has been told already; a redraw passes over it.
/// @throws Errore of the composition; then nothing is exported
std::optional<Errore> AnteprimaConEsportazione(Superficie& vp, const Parcella& Nota, int Tipo,
                                               const QString& Stelo, const std::optional<QString>& Invio = {},
                                               const Carta& Foglio = {});

/// The word-processor file of this stem is that of the note as it would be composed now: as the program
/// has written it, or as it was written on since in a word processor, there on whatever paper. Another
/// note of the same name may have been composed there meanwhile, in this program or in another one; then
/// it is not, nor where this program has not yet written it. Nothing is written.
///
/// @param vp the surface of the page on view, which says how far that is tightened
[[nodiscard]] bool EsportazioneAllaPari(const Superficie& vp, const Parcella& Nota, int Tipo,
                                        const QString& Stelo, const Carta& Foglio = {});
