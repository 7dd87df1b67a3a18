// What a note's file keeps beside its columns, so that a note reopened is the note that was printed.
//
// The values stand in the hidden table of the program (Database::Annotazioni), by the name of the control or
// of the state that they give back. A file without them, and a value that is missing, leave what the columns
// alone give. Nothing that a column holds is kept here too.
#pragma once

#include "feenote/parcella.h"
#include "platform/database/database.h"

#include <QMap>
#include <QString>

/// Values by name.
using MemoriaFile = QMap<QString, QString>;

/// Keeps what the columns do not hold. It stands in the transaction of the save.
/// @throws Errore as Database::Execute
void ScriviMemoria(const Database& File, const Parcella& Nota);

/// Puts the note's choices for its electronic invoice, which file was written of it and the note's state into
/// the file's memory, and leaves all else that it keeps, what a newer version keeps there included.
/// @return what it kept of these before, for RimettiFattura
/// @throws Errore as Database::RitoccaAnnotazioni
MemoriaFile AnnotaFattura(const Database& File, const Parcella& Nota);
/// Takes AnnotaFattura back. @throws Errore as Database::RitoccaAnnotazioni
void RimettiFattura(const Database& File, const MemoriaFile& Era);

/// Puts the note's state alone into the file's memory, and leaves all else that it keeps.
/// @throws Errore as Database::RitoccaAnnotazioni
void AnnotaStato(const Database& File, const Parcella& Nota);

/// What a file keeps; empty for one from before this table, or of another origin.
[[nodiscard]] MemoriaFile LeggiMemoria(const Database& File);

/// True when the file keeps a value by a name that this version does not know.
[[nodiscard]] bool HaVociIgnote(const MemoriaFile& Memoria);

/// Gives the note what must stand before its print type is chosen: switches, print data, the client's blocks.
/// An IBAN tick comes back only while the settings hold an IBAN.
void ApplicaMemoria(Parcella& Nota, const MemoriaFile& Memoria);
/// Gives the note what its print type would have overwritten: the payments of a short invoice that does not
/// list them, the taxes ticked on a court costs note.
void ApplicaMemoriaDelTipo(Parcella& Nota, const MemoriaFile& Memoria);

/// The decree that a note follows: D.m. 140/2012 where the file names none.
/// @throws Errore 1000 for one that this version does not know
[[nodiscard]] const Decreto& TariffaDella(const MemoriaFile& Memoria);

/// The office and the bracket of a note by their numbers; 0: not kept.
struct SelezioniTenute
{
    int IDAut = 0;
    int NumSca = 0;
};
[[nodiscard]] SelezioniTenute SelezioniDella(const MemoriaFile& Memoria);

/// True when the keys of the file's lines are those of catalogues that share none with each other.
[[nodiscard]] bool ChiaviDisgiunte(const MemoriaFile& Memoria);
