// The way back from an import: the archive as it was, beside the one that is.
#pragma once

#include "platform/database/database.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

/// An import, as the file beside its archive tells it.
struct ImportazioneFatta
{
    QDateTime Quando;
    QString Tabella;
    QString Sorgente;  ///< the file that was imported
    int Aggiunti = 0;
    int Completati = 0;
};

/// A copy of an archive taken before it is written to, named as the archive with ".prima" behind it, or
/// ".prima.2" while that one is of the import before. There is one of an archive at a time, for this user
/// alone.
///
/// The way back is complete before the import is: the record is written while the import can still be undone
/// by its transaction, and says by what it is known. Whatever ends the program in between, either the archive
/// is as it was, or AnnullaImportazione finds what it needs. Dropped unless it is kept.
class CopiaDiPrima
{
public:
    /// Takes the turn, which one program at a time has for an archive, and sweeps what interrupted imports
    /// have left; nothing is copied yet.
    /// @throws Errore NumeroFileRifiutato when another program imports into the archive, and as OpenDatabase
    /// when the archive cannot be read and only it could say which copy is the last one
    explicit CopiaDiPrima(const QString& DiArchivio);
    ~CopiaDiPrima();
    CopiaDiPrima(const CopiaDiPrima&) = delete;
    CopiaDiPrima& operator=(const CopiaDiPrima&) = delete;

    /// Copies the archive. @throws Errore as CopiaFile
    void Prendi();
    /// Writes the record of what the open transaction has put into the archive, just before it is confirmed.
    /// @throws Errore as reading the copy and ScriviFile: the import must not be confirmed then
    void Annuncia(const Database& InScrittura, const ImportazioneFatta& Fatta);
    /// The archive is written: from now on the copy is the last one, and the one before goes.
    /// @return its path
    QString Tieni();

private:
    struct Stato;
    std::unique_ptr<Stato> Dati;
};

/// Takes away what killed imports have left beside an archive: the turn, and a copy that was never announced
/// or whose import was never confirmed. The copy of the last import stays. It cannot fail, and opens no
/// database.
void TogliRestiDiImportazioni(const QString& Archivio);

/// The last import into an archive that can be undone, or could have been; none where no copy is kept.
/// @throws Errore as OpenDatabase when the archive cannot be read and only it could say which copy that is
[[nodiscard]] std::optional<ImportazioneFatta> UltimaImportazione(const QString& Archivio);

/// What is said of a last import whose copy or record is there and cannot be read: it names both. None where
/// nothing is wrong with them, or nothing is there.
[[nodiscard]] std::optional<QString> ImportazioneIlleggibile(const QString& Archivio);

/// Puts the archive back as it was, byte for byte; the copy is used up. The keys of the names that go are
/// kept beside it (see TrattieniAccanto). Whoever has the archive open opens it anew. Nobody imports into the
/// archive or writes to it meanwhile.
/// @throws Errore NumeroFileRifiutato when the archive is not as the import has left it, or the copy not as
/// it was taken, or another program imports into it; 3260 when somebody writes to it, and as OpenDatabase
/// when it cannot be read: all stays
void AnnullaImportazione(const QString& Archivio);
