// The way back from an import: the archive as it was, beside the one that is.
#pragma once

#include <QDateTime>
#include <QString>

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

/// A copy of an archive taken before it is written to, named as the archive with ".prima" behind it. There is
/// one of an archive at a time, for this user alone; the copy of an import before goes when this one is kept.
/// Dropped unless it is.
class CopiaDiPrima
{
public:
    /// @throws Errore as CopiaFile
    explicit CopiaDiPrima(const QString& DiArchivio);
    ~CopiaDiPrima();
    CopiaDiPrima(const CopiaDiPrima&) = delete;
    CopiaDiPrima& operator=(const CopiaDiPrima&) = delete;

    /// The archive is written: from now on AnnullaImportazione can put the copy back.
    /// @return the copy's path @throws Errore as ScriviFile; the copy is kept in any case
    QString Tieni(const ImportazioneFatta& Fatta);

private:
    QString Archivio;
    bool Tenuta = false;
};

/// The last import into an archive that can be undone, or could have been; none where no copy is kept.
[[nodiscard]] std::optional<ImportazioneFatta> UltimaImportazione(const QString& Archivio);

/// Puts the archive back as it was, byte for byte; the copy is used up. Whoever has the archive open opens it
/// anew.
/// @throws Errore NumeroFileRifiutato when the archive is not as the import has left it, or the copy not as
/// it was taken: both stay
void AnnullaImportazione(const QString& Archivio);
