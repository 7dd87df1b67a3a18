// Another office's archive, or the former program's, taken whole into the user's own folder.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// An archive as it was taken.
struct ArchivioPreso
{
    QString File;  ///< the native one, which may be used from now on
    int Clienti = 0;
    int Controparti = 0;
    QStringList Tralasciati;  ///< what of it could not be taken, a line each
};

/// Writes the native form of an archive into a folder: as DatiStudio.mdb where none is there or the one there
/// has no rows, else under a new name. Its columns stay its own; a table of counterparties that it does not
/// have is made empty, with the columns of its clients. The archive itself is only read.
/// @param Prosegui asked now and then; false stops it, and nothing has changed
/// @throws Errore NumeroFileRifiutato when it has no clients, or cannot be read; as ScriviNativo
[[nodiscard]] std::optional<ArchivioPreso>
PrendiArchivio(const QString& Da, const QString& Cartella,
               const std::function<bool(qint64 Fatti)>& Prosegui = {});

/// Takes away what a killed program has left of an archive that it was making in a folder: it holds the names
/// of an office. One that lives is left alone. It may run in a thread of its own.
void TogliRestiDiArchivi(const QString& Cartella);

/// The report of it.
[[nodiscard]] QString ResocontoArchivio(const QString& Da, const ArchivioPreso& Preso);
