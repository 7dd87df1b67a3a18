// Folders as lists of them want them: what stands in one, what stands above it, where a disk begins.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/// An entry of a folder.
struct VoceCartella
{
    QString Nome;
    bool Cartella = false;      ///< a folder, or a link to one
    bool Collegamento = false;  ///< a link
    qint64 Byte = 0;            ///< of a file
    qint64 Modificata = 0;      ///< last change in milliseconds from 1970, UTC
    bool SolaLettura = false;   ///< see SolaLettura of percorsi.h
};

/// Goes through one folder in no order. Left out are hidden entries, "." and "..", and whatever is neither a
/// file nor a folder: links that lead nowhere, pipes. It speaks to nobody and may run in a thread of its own.
/// @param Prendi false ends it
/// @param NonLegge takes the files and folders whose names are no text, as old disks and foreign zips leave
/// them: no path of the program leads there. The bytes that are no letters stand in the name as U+FFFD
/// @return false when it was ended so
/// @throws Errore 76 no such folder, 75 it cannot be read, 57 the disk fails on the way
bool ScorriCartella(const QString& Cartella, const std::function<bool(VoceCartella&&)>& Prendi,
                    const std::function<void(const VoceCartella&)>& NonLegge = {});

/// Names of the files in a folder that end so, whatever their case, hidden ones too, in the order of a
/// reader. None of a folder that is not there or cannot be read.
[[nodiscard]] QStringList NomiDeiFile(const QString& Cartella, const QString& Fine = {});

/// Names of whatever stands in a folder: files, folders, links that lead nowhere, hidden or not. None of a
/// folder that is not there or cannot be read.
[[nodiscard]] QStringList NomiDentro(const QString& Cartella);

/// Deletes a file. @throws Errore 53 there is none, 75 its folder or the system refuses; it is then as it was
void EliminaFile(const QString& Percorso);

/// Deletes a file that nobody needs any more; one that is not there or stays is no error.
void ScartaFile(const QString& Percorso);

/// Makes a folder that nobody else may enter and that was not there.
/// @return false when something of this name is there. @throws Errore 75 when it cannot be made
[[nodiscard]] bool CreaCartellaNuova(const QString& Cartella);

/// Removes a folder if it is there and nothing is in it, without a word where that cannot be.
void ScartaCartella(const QString& Cartella);

/// Whether something has this name: a file, a folder, a link, one that leads nowhere too.
[[nodiscard]] bool NomePreso(const QString& Percorso);

/// Whether two paths are one name in other letters' case: the disk answers to both with the same entry of the
/// folder. Never a file and a link to it, nor two links of either kind.
[[nodiscard]] bool StessaVoce(const QString& Uno, const QString& Altro);

/// Gives a file another name on the same disk, in one step; a file that has that name already is never
/// replaced. Other letters' case is another name; on a disk for which it is none (see StessaVoce) the file
/// takes it all the same, in two steps: for a moment it has a name of both, "Rossi (cambio nome 1).mdb".
/// @throws Errore 53 there is no such file, 75 its folder or the system refuses, or the name is taken, 61 no
/// room, 57 the disk fails. The file has its former name then; where even that is refused the second time,
/// the description says which it has
void RinominaFile(const QString& Vecchio, const QString& Nuovo);

/// The user's home, with the separator at its end.
[[nodiscard]] QString CartellaPersonale();

/// The folder of what the program keeps for this user alone, with the separator at its end. It need not be
/// there.
[[nodiscard]] QString CartellaDati();

/// The folder above, with the separator at its end; empty above the topmost one.
[[nodiscard]] QString CartellaSuperiore(const QString& Cartella);

/// A place where a tree of folders begins.
struct Volume
{
    QString Percorso;  ///< with the separator at its end
    QString Nome;      ///< as it is shown

    friend bool operator==(const Volume&, const Volume&) = default;
};

/// The user's home and the mounted volumes that he may see, the root first; on Windows the drives.
[[nodiscard]] QList<Volume> VolumiVisibili();
/// The one of them in which a folder stands: the longest that it begins with; -1 none.
[[nodiscard]] int VolumeDi(const QList<Volume>& Volumi, const QString& Cartella);
