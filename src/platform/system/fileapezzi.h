// A file whose bytes come one piece after the other.
#pragma once

#include "platform/system/fileaccanto.h"

#include <QByteArrayView>
#include <QString>

/// What ScriviFile writes, for who never holds the whole of it: the former file stays until the new one is on
/// the disk, and where the object goes before Posa. A link stays a link.
class FileAPezzi
{
public:
    /// @param Chi may read it
    /// @throws Errore 75 refused, 76 no folder, 61 no room, 57 the disk fails, 55 another program is writing
    /// it
    FileAPezzi(const QString& Percorso, Lettori Chi);

    void Scrivi(QByteArrayView Byte);  ///< behind what stands in it. @throws Errore as the constructor
    void Posa();                       ///< @throws Errore, NonConfermato as FileAccanto::Posa

private:
    FileAccanto Nuovo;
    qint64 Scritti = 0;
};
