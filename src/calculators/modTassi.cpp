#include "calculators/modTassi.h"

#include "core/sessione.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

QString ArchivioTassi()
{
    return TrovaFile(Barra(sessione::UserFolder) + u"Tassi.dat"_s);
}

std::optional<QDate> DataArchivio(const QString& Archivio)
{
    const QFileInfo File(Archivio);
    return File.isFile() ? std::optional(File.lastModified().date()) : std::nullopt;
}

bool ChiediAggiornamento(const QString& Avviso)
{
    return MsgBox(Avviso + u"\nSi vuole procedere all'aggiornamento degli indici?"_s, vbYesNo + vbQuestion,
                  TitoloDomanda.toString()) == vbYes;
}
