// A folder of old notes and templates, copied in native form into another folder.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/// What became of a file.
struct EsitoNota
{
    QString Nome;  ///< path below the folder
    bool Copiata = false;
    QString Detto;  ///< why not, or what of it was left out; may be empty
};

/// Copies the databases of a folder and of those below it into another one, in the same tree. A file that is
/// there already is never replaced; the old ones are only read.
/// @param Prosegui asked between files and while one is copied; false stops it, and what was copied goes
/// again
/// @return what became of each; none when it was stopped
/// @throws Errore NumeroFileRifiutato when the two folders are one or hold no databases, 76, 75
[[nodiscard]] std::optional<QList<EsitoNota>>
CopiaNote(const QString& Da, const QString& A,
          const std::function<bool(int Fatte, int Tutte)>& Prosegui = {});

/// The report, file by file.
[[nodiscard]] QString ResocontoNote(const QString& Da, const QString& A, const QList<EsitoNota>& Esiti);
