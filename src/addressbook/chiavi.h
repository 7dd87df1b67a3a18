// The keys of the names, by which notes are linked to them. None is ever given twice: the note of a name that
// has gone must not find another person.
#pragma once

#include "platform/database/database.h"

#include <optional>

/// The highest key that a table has given, as far as its file knows: that of its rows, of the engine's own
/// counter, of what TrattieniChiavi and TrattieniAccanto keep; 0 for none.
/// @throws Errore as OpenRecordset; 75 and others where the file beside the archive is there and cannot be
/// read, with a sentence that names it
[[nodiscard]] qint64 UltimaChiaveData(const Database& Db, const QString& Tabella);

/// No key up to this one is given to a new row any more. Where another program has a table of its own in the
/// place of what the program keeps in a file, nothing is kept. @throws Errore as Execute
void TrattieniChiavi(const Database& Db, const QString& Tabella, qint64 Fino);

/// The same for an archive that must stay byte for byte as it is: the key is kept in a small file beside it,
/// called as the archive with ".chiavi" behind it, for whom the archive is. It stays there; the next row
/// takes the archive itself beyond.
/// @throws Errore as ScriviFile; as UltimaChiaveData of a file that cannot be read, which stays
void TrattieniAccanto(const QString& Archivio, const QString& Tabella, qint64 Fino);

/// The key for a new row of a table; none where the engine gives it, or where there is no key.
/// @throws Errore as UltimaChiaveData; 6 when the last key is the highest there can be
[[nodiscard]] std::optional<qint64> PrimaChiaveLibera(const Database& Db, const QString& Tabella);
