// Files in Access format (.mdb of Jet 3 and Jet 4, .accdb): read through native copies of them.
//
// A program of its own, calcanova-accesso, reads such a file and writes a database of this program's kind:
// same tables, columns, descriptions, keys and indices. It has little memory, little time, no network and no
// other file; where it dies or hangs, the one file that it was at is refused (3343) and nothing else: one that
// has ended between two files is started anew. The Access file itself is opened for reading alone, and
// nothing here ever writes one.
//
// All of this but ApriArchivio may be called from any thread.
#pragma once

#include "platform/database/database.h"
#include "platform/system/permessi.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

/// A table of the copy, with its rows.
struct TabellaAccess
{
    QString Nome;
    qint64 Righe = 0;

    friend bool operator==(const TabellaAccess&, const TabellaAccess&) = default;
};

/// What a copy does without: a table, a column, cells.
struct TralasciatoAccess
{
    QString Cosa;    ///< "MSysObjects", "clienti.Foto"
    QString Perche;  ///< a clause in Italian, without a full stop

    friend bool operator==(const TralasciatoAccess&, const TralasciatoAccess&) = default;
};

/// What stands in a copy, and what does not.
struct RapportoAccess
{
    QList<TabellaAccess> Tabelle;
    QList<TralasciatoAccess> Tralasciati;
};

/// How a copy is made.
struct ModoAccess
{
    /// Seconds of processor that the reading may take: 10 where somebody waits for a note, 120 behind a
    /// dialog that shows how far it is.
    int Secondi = 10;
    /// Asked now and then with the rows written so far, in the caller's thread; false stops it.
    std::function<bool(qint64 Righe)> Prosegui = {};
    /// May read the copy.
    Lettori Chi = Lettori::Cartella;
    /// See FileInCopia::Posa.
    QDateTime Data = {};
};

/// True for a file that begins as those of Access do, whatever its name. It need not be whole or readable.
[[nodiscard]] bool EDiAccess(const QString& Percorso);
/// The same for whoever is going to replace a file: one that cannot be read just now may be one.
/// @throws Errore 75 it cannot be read
[[nodiscard]] bool EDiAccessDiSicuro(const QString& Percorso);

/// Writes the native copy of an Access file, which must not be there yet. It is read by the user, and by whom
/// its folder lets write.
///
/// Kept as they are: names of tables and columns, types (a GUID becomes text, a decimal a double), sizes,
/// descriptions, keys, indices with their names, texts and memos whole. Counters keep their values, and the
/// next one is above the highest. Left out and named: system and linked tables, tables that cannot be read,
/// binary and OLE columns, cells of more than 16 MiB.
/// @return what was copied; nothing when `Prosegui` stopped it, and no copy is there then
/// @throws Errore 53 no such file, 75 unreadable or no file, 3343 no Access file, a damaged or encrypted one,
/// one that is too large or takes too much (its description says which and what to do), 3204 the copy exists,
/// 3044 no such folder, 3026 disk full, 3260 somebody writes to it all the time, 31 the reading program is
/// missing; no copy is there then
std::optional<RapportoAccess> ConvertiAccess(const QString& Da, const QString& A,
                                             const ModoAccess& Come = {});

/// A native file with what this one holds: the file itself where it is not an Access one, else a copy in a
/// private folder, which serves as long as the file keeps its size and date. The copy may be changed (an old
/// note gets its missing columns there); the file is not.
/// @throws Errore as ConvertiAccess; a file that was refused is not tried again until it changes
[[nodiscard]] QString CopiaNativa(const QString& Percorso);

/// OpenDatabase for a file that may be an Access one: its copy is open for reading alone, so that whoever
/// writes gets 3027. @throws Errore as OpenDatabase and CopiaNativa
[[nodiscard]] Database ApriArchivio(const QString& Percorso, bool SolaLettura = false);

namespace accesso {

/// The reading program; empty: calcanova-accesso beside this one. The tests set it.
inline QString Programma;
/// Where copies are kept; empty: the user's cache. The tests set it.
inline QString CartellaCopie;
/// A program that waits for a disk uses no processor: it is given up after so many times its seconds.
inline int AttesaPerSecondo = 6;
/// Copies that nobody has used for so many days are swept away.
inline int GiorniCopie = 30;
/// Bytes of copies that are kept at most; the longest unused ones go first.
inline qint64 MassimoCopie = qint64(1) << 30;

}  // namespace accesso
