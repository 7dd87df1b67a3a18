// Archives of this program and of Access, opened by a native file.
#pragma once

#include "platform/system/blocco.h"
#include "platform/system/permessi.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

/// True for a database, native or of Access, by its first bytes. @throws Errore 53, 75
[[nodiscard]] bool EArchivio(const QString& File);

/// Writes the native form of a database into a new file; a native one is copied as it stands at one moment,
/// with what its journal or log holds (see CopiaIntera).
/// @param Prosegui asked now and then with the rows or bytes done; false stops it, and nothing is left
/// @param Chi may read it
/// @param Data its last change, where the disk lets one be set; none: the present
/// @return what was left out, a line each; none when it was stopped
/// @throws Errore NumeroFileRifiutato for what cannot be read, with what to do; 3204 the new file exists, 61,
/// 75
[[nodiscard]] std::optional<QStringList> ScriviNativo(const QString& Da, const QString& A,
                                                      const std::function<bool(qint64 Fatti)>& Prosegui = {},
                                                      Lettori Chi = Lettori::Cartella,
                                                      const QDateTime& Data = {});

/// Takes away the native forms that killed programs have left in the data folder of this user: they hold
/// names of people. Another program's stay while it lives. It may run in a thread of its own.
void TogliRestiDiSorgenti();

/// True for a line of ScriviNativo that tells of a table of Access's own, which nobody misses.
[[nodiscard]] bool TabellaDiSistema(const QString& Detto);

/// A database that can be opened, for as long as this lives, without a change to the file or to its folder:
/// the file itself, or a native form of it, for this user alone, that goes with this. Such a form is made of
/// an Access file, of a database that another tool keeps with a log, of one with a journal of some bytes,
/// whether a write was cut off or goes on, and of one that stands where files cannot be locked.
class ArchivioNativo
{
public:
    /// @throws Errore as ScriviNativo and LeggibileDoveSta; Interrotto when `Prosegui` stopped it
    explicit ArchivioNativo(const QString& DiFile, const std::function<bool(qint64 Fatti)>& Prosegui = {});
    ~ArchivioNativo();
    ArchivioNativo(const ArchivioNativo&) = delete;
    ArchivioNativo& operator=(const ArchivioNativo&) = delete;

    /// What is to be opened.
    [[nodiscard]] const QString& File() const { return Nativo; }
    /// What of it was left out, a line each.
    [[nodiscard]] const QStringList& Lasciati() const { return Fuori; }

private:
    std::unique_ptr<FileBlocco> Turno;  ///< goes last
    QString Nativo;
    QString Provvisorio;  ///< empty: the file itself
    QStringList Fuori;
};
