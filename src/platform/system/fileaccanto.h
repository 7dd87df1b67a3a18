// A file that stands whole on its disk before it takes its place.
#pragma once

#include "platform/system/permessi.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

#include <memory>

/// The file while it is written, beside the place that it will take. It goes with the object unless it was
/// put there.
///
/// Where the disk knows files without a name it has none until it is whole, so that a program that is killed
/// leaves nothing; elsewhere, and for the moment between two steps, it is `.~<name>.tmp`, which the next one
/// takes away; of two programs that write it at once the second waits, or gives up. Behind the first file
/// that a process puts into a folder goes what killed programs have left there of others (TogliRestiAccanto).
class FileAccanto
{
public:
    /// @param Finale path of a file that is no link (see FileVero)
    /// @param Chi may read it, from its first byte on (see DaiPermessi)
    /// @throws Errore 61 no room, 75 refused, 76 no folder, 57 the disk fails, 55 another program is writing
    /// it
    FileAccanto(const QString& Finale, Lettori Chi);
    ~FileAccanto();
    FileAccanto(const FileAccanto&) = delete;
    FileAccanto& operator=(const FileAccanto&) = delete;

    void Scrivi(QByteArrayView Byte);  ///< @throws Errore as the constructor
    /// Gives it the date of its last change, behind the last byte. @throws Errore 75 refused
    void ImpostaData(const QDateTime& Quando);

    /// Waits for the disk, takes the place in one step, and waits until the folder holds the name.
    /// @throws Errore as the constructor; the former file stands then
    /// @throws NonConfermato the folder itself failed at the very end: the new one stands
    void Posa();
    /// The same where nothing stands. @return false when something has come up there, and stays
    /// @throws Errore as Posa; nothing stands there then, but for NonConfermato, where it could not be taken
    /// away again
    [[nodiscard]] bool PosaSeLibero();

private:
    struct Interno;
    std::unique_ptr<Interno> Dati;
};

/// Takes away what killed programs have left in a folder of files that they were writing. It must be a file
/// of this user's with a name of that form, which no process holds and nobody has touched for five minutes: a
/// disk of other machines shows nobody's locks. It cannot fail.
void TogliRestiAccanto(const QString& Cartella);
