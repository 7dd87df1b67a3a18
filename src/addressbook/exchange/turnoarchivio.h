// Who may fill or replace an archive, and when.
#pragma once

#include "platform/database/database.h"
#include "platform/system/blocco.h"

#include <QString>

#include <optional>

struct Errore;

/// The file of the turn that one program at a time has for an archive, whatever link the archive is opened
/// by.
[[nodiscard]] QString FileDelTurno(const QString& Archivio);

/// Takes that turn, waiting for it a little.
/// @throws Errore NumeroFileRifiutato when another program has it
void PrendiTurno(FileBlocco& Turno);

/// A file that is no archive any more, or another one: nobody can have left it so by an import. One that is
/// only locked, or that the disk does not give, may still be it.
[[nodiscard]] bool NonEQuello(const Errore& Guasto);

/// Keeps everybody from writing to an archive. Who waits for it meanwhile is refused if the file has been
/// replaced when his turn comes: the engine writes to none that has lost its name.
class ArchivioFermo
{
public:
    /// @throws Errore 3260 when somebody is writing to it, and as OpenDatabase
    explicit ArchivioFermo(const QString& Archivio);

private:
    Database Db;
    std::optional<Transazione> Sola;
};
