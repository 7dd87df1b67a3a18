// Composition of the documents of a fee note.
#pragma once

#include "feenote/parcella.h"
#include "platform/document/superficie.h"
#include "print/modClausole.h"

#include <QString>

/// Composes the whole document on the surface; what stood there is discarded. A note that is not Pronta
/// composes nothing. A number that is no document leaves an empty one.
///
/// @param Tipo a TipoStampa
/// @return false when nothing was composed
/// @throws Errore; what was drawn up to there stays on the surface: nothing while the archive of clients
/// could not be read for what the document says of the parties
bool Anteprima(Superficie& vp, const Parcella& Nota, int Tipo);

/// The margins of a document's page.
/// @param Tipo a TipoStampa
void ImpostaMargini(Superficie& vp, int Tipo);
