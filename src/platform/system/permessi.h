// Who may read what the program makes.
#pragma once

#include <QString>

class QFileInfo;

/// Who may read a file that the program makes, and write it.
enum class Lettori {
    Tutti,       ///< whom the system lets read every new file; a former file's own permissions
    Cartella,    ///< the user, and whoever may write into the folder; a former file's own permissions
    SoloUtente,  ///< the user alone, whatever there was
};

/// Gives a finished file, or an empty folder, the permissions that it is to have in its place: those of the
/// former file there, with its group and, where that is allowed, its owner, or those of a new one. On Windows
/// folders hand down their own.
/// @param File the finished file, or the folder
/// @param Destinazione the place that it will take; empty for one that is in its place
/// @throws Errore 75 when they cannot be given
void DaiPermessi(const QString& File, const QString& Destinazione, Lettori Chi);

/// Creates the whole path. Each folder that it makes is the user's alone, and that of whoever may write into
/// the one above; those that are there stay as they are.
/// @throws Errore 75 when it cannot be made
void CreaCartellaDiUtente(const QString& Percorso);

/// Whether somebody may read the file or folder, which has a reading bit at all: one that nobody may read is
/// refused to the superuser too. The system has the last word, when it is opened.
[[nodiscard]] bool Leggibile(const QFileInfo& Info);

/// Whether the file or folder belongs to the user of this process.
[[nodiscard]] bool DiQuestoUtente(const QString& Percorso);

/// The file behind a name: where links lead, also one that leads to no file yet.
[[nodiscard]] QString FileVero(const QString& Percorso);
