#include "platform/system/sincrono.h"

#include "platform/base/errore.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"

#include <QFile>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool Sincronizza(int Descrittore)
{
#ifdef Q_OS_WIN
    return _commit(Descrittore) == 0;
#else
    return fsync(Descrittore) == 0;
#endif
}

}  // namespace

void ScriviSulDisco(const QString& File)
{
    QFile Aperto(PercorsoNativo(File));
    if (!Aperto.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        throw Errore(errori::Accesso);
    const bool Rifiutato = guasti::PrimaDelDisco && !guasti::PrimaDelDisco(File);
    if (Rifiutato || !Sincronizza(Aperto.handle()))
        throw Errore(errori::DiscoPieno);
}
