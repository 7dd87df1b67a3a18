#include "feenote/file/improntanota.h"

#include "platform/system/percorsi.h"

#include <QFileInfo>

ImprontaNota ImprontaDi(const QString& Percorso)
{
    const QFileInfo File(PercorsoNativo(Percorso));
    return File.exists() ? ImprontaNota{File.lastModified(), File.size()} : ImprontaNota{};
}
