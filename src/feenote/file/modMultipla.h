// Two notes in one: what a note takes of another that is printed with it. The other one is only read.
#pragma once

#include "feenote/parcella.h"

#include <QString>

/// What is said of a note that is to be associated with itself.
inline constexpr QStringView StessaParcella = u"La parcella non può essere associata a se stessa!";

/// What documents take of a note as it stands in memory, unsaved changes included.
[[nodiscard]] NotaAssociata DatiMulti(const Parcella& Altra);

/// The same of a saved note. Nothing is shown, no old file is upgraded, no session follows its matter. A
/// template loses its read-only attribute, where the medium lets it.
/// @throws Errore as CaricaDati; the file is then as it was
[[nodiscard]] NotaAssociata LeggiMulti(const QString& Percorso);

/// True when a path leads to the note's own file, whatever its separators and the links on its way.
[[nodiscard]] bool SuoFile(const Parcella& Nota, const QString& Percorso);

/// Associates a saved note with this one, or reads the associated one again.
///
/// All or nothing: after a failure the note has what it had.
/// @param Aperta the other note where a window holds it; its figures count, not the file's
/// @return false for the note itself, which the user has been told
/// @throws Errore as LeggiMulti
bool AssociaMulti(Parcella& Nota, const QString& Percorso, const Parcella* Aperta = nullptr);

/// Says of an association that was just read how many amounts of the other note cannot be read, if any:
/// nobody may take such a 0 for what was written there.
void AvvisaIlleggibiliMulti(const Parcella& Nota);

/// Takes the association away. The options stay as they are.
void TogliMulti(Parcella& Nota);
