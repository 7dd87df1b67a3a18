// A database as it stands at one moment, written into a new file.
#pragma once

#include "platform/system/permessi.h"

#include <QDateTime>
#include <QString>

#include <functional>

/// True for a database in which a reader finds everything where it stands, and leaves nothing beside it: it
/// is kept with no log, has no journal, and stands where files can be locked.
/// @throws Errore 3024 no such file, 3343 no database (truncated ones too), or a journal beside it that names
/// another file, 75 a folder or unreadable
[[nodiscard]] bool LeggibileDoveSta(const QString& Percorso);

/// Copies a database with what its journal or its log holds: of a write that was cut off the copy has
/// nothing, of one that goes on what was confirmed. The file is read under the engine's lock, or where there
/// are none once more if it has changed; it, and what stands beside it, stay as they are, whoever keeps it.
/// The copy is kept without a log, and its pages have been checked; rows that break a rule of their table are
/// copied like any other.
/// @param Prosegui asked now and then with the bytes done; false stops it, and no copy is there then
/// @param Chi may read the copy
/// @param Data see FileInCopia::Posa
/// @return false when it was stopped
/// @throws Errore as LeggibileDoveSta; 3343 damaged, 3260 somebody writes all the time, or has it open with a
/// log that cannot be read (the description says so), 3204 the copy exists, 3044 no such folder, 61 and 3026
/// no room, 57 and 3043 a disk fails
bool CopiaIntera(const QString& Da, const QString& A, const std::function<bool(qint64 Fatti)>& Prosegui = {},
                 Lettori Chi = Lettori::Cartella, const QDateTime& Data = {});
