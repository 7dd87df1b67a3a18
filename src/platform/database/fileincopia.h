// A database of its own program's making that is not in its place yet: a copy, a conversion.
#pragma once

#include "platform/system/blocco.h"
#include "platform/system/permessi.h"

#include <QDateTime>
#include <QString>

/// A new database while it is written, beside the place that it will take; gone with this object unless it
/// was put there, with whatever the engine leaves beside it. Its turn tells the sweep of its folder that its
/// writer lives (see TogliRestiDiNote).
class FileInCopia
{
public:
    /// @param Finale the path that it will take; nothing may be there
    /// @throws Errore 3204 something is there, or the journal of what was there, 3044 no such folder, 75 the
    /// folder refuses writing, 3026 no room for its turn
    explicit FileInCopia(const QString& Finale);
    ~FileInCopia();
    FileInCopia(const FileInCopia&) = delete;
    FileInCopia& operator=(const FileInCopia&) = delete;

    /// Where it is written; nothing is there at first.
    [[nodiscard]] const QString& Percorso() const { return Provvisorio; }
    /// Where a copy of what it is made of may stand meanwhile; it goes with it.
    [[nodiscard]] QString Letto() const;
    /// Back to nothing.
    void Togli() const;
    /// The same of what was written alone: the copy of what it is made of stays.
    void TogliScritto() const;
    /// Gives it its name, which is never another file's.
    /// @param SulDisco waits for the disk, and for the folder to hold the name
    /// @param Data its last change, from its first moment under that name on, where the disk lets one be set;
    /// none: the present
    /// @throws Errore as DaiPermessi, ScriviSulDisco, RinominaFile and SincronizzaCartellaDi; the name is
    /// free then. NonConfermato where the disk fails at the very end, and lets nobody take the file away
    void Posa(Lettori Chi, bool SulDisco, const QDateTime& Data = {}) const;

private:
    QString Finale;
    QString Provvisorio;
    FileBlocco Turno;
};
