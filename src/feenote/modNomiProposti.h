// The names that a save and an export propose: who it is for, what it is about, which document.
#pragma once

#include "feenote/parcella.h"

/// A text as part of the name of a file on any system: in one line, without the signs that the names of notes
/// or of files may not hold, without a blank, a dot or a dash at its ends. A stop inside a number becomes a
/// dash, any other one goes.
/// @param MassimoByte that it may take on the disk; it is cut between two characters, best between two words
[[nodiscard]] QString ParteDiNome(const QString& Testo, qsizetype MassimoByte);

/// "Rossi - appalto": client and subject, those that are there; empty without either.
[[nodiscard]] QString NomeProposto(const Parcella& Nota);

/// "Rossi - appalto - Fattura 12-2026": that name, or the note's own where it is empty, and the document with
/// its number. The year is that of the document's date, today's where it has none.
/// @param Tipo a TipoStampa; any other number adds nothing
[[nodiscard]] QString NomeDocumentoProposto(const Parcella& Nota, int Tipo);
