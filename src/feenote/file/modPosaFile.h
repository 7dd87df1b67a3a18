// Saving a fee note: the file is built anew each time from the template tables of its decree's reference
// database.
#pragma once

#include "feenote/parcella.h"
#include "platform/system/blocco.h"
#include "platform/system/permessi.h"

#include <QString>

#include <functional>
#include <optional>

/// Bytes of a file's name that every disk takes, the names of the files beside it included.
constexpr qsizetype MassimoNomeNota = 240;

/// Builds the file of a note.
///
/// The new file is complete before it takes the place of a former one: a failure at any step (full disk,
/// read-only folder, damaged reference database) leaves the former file as it was, and nothing under the
/// note's name where there was none. A reference database from before the general expenses gets their column.
/// Links are followed. A former file leaves its permissions, group and owner to the new one; a first one is
/// the user's alone, and that of whoever may write into its folder.
/// The journal of a note that had the name and is gone is kept under another (ScostaGiornale).
/// @param ComeModello the file gets the read-only attribute, which protects templates
/// @throws Errore 75 refused, or a folder of that name, 3044 no such folder, 52 name over 240 bytes, 3026
/// disk full, 3024/3343 parcelle.mdb, 70 the file is a template, 3163 text too long, 3260 another program is
/// writing the same file, or has left its lock (TurnoAbbandonato)
/// @return that journal's name by now, for FraseScostato; empty where there was none
QString ScriviNota(const QString& Percorso, const Parcella& Nota, bool ComeModello = false,
                   Lettori Chi = Lettori::Cartella);
/// What the user is told of it, who alone knows whether the former note comes back.
[[nodiscard]] QString FraseScostato(const QString& Percorso, const QString& Scostato);

/// The same over a file that somebody else may save meanwhile: asks once more behind his turn, just before
/// the new file takes the place.
/// @param Immutata whether the file is still the one that may be replaced
/// @return false when it is not; nothing was written
[[nodiscard]] bool ScriviNotaSe(const QString& Percorso, const Parcella& Nota,
                                const std::function<bool()>& Immutata);

/// Adds the columns that the file of a read-only note lacks. The file is replaced by its completed copy, so
/// that its attribute is never taken away.
/// @throws Errore as ScriviNota and AggiornaColonne; 75 on a medium that refuses the attribute
void AggiornaProtetta(const QString& Percorso);

/// Gives a note that has further names on its disk (hard links, as many backups make them) a file of its own
/// under this one, before something is written into it in place: the others keep what they hold. Date and
/// permissions stay.
/// @throws Errore as AggiornaProtetta
void SeparaNomi(const QString& Percorso);

/// What keeps saves of a name from their turn although nobody saves: the lock of another machine that is
/// older than any save takes, or one that cannot be read.
struct TurnoLasciato
{
    QString File;
    FirmaBlocco Firma;
};

/// The lock in the way of a save under this name; nothing where the way is free or somebody may be saving.
[[nodiscard]] std::optional<TurnoLasciato> TurnoAbbandonato(const QString& Percorso);

/// What is said of it, without its end: "Il salvataggio è trattenuto dal file ..., lasciato dal computer
/// ...".
[[nodiscard]] QString FraseTurno(const TurnoLasciato& Trovato);

/// Removes what killed programs left beside the notes of a folder: half-built files, their journals and
/// locks, and the journal of what was written in place. It cannot fail.
void TogliRestiDiNote(const QString& Cartella);
