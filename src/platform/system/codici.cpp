#include "platform/system/codici.h"

#include "platform/base/errore.h"

#include <cerrno>

Errore ErroreDelSistema(int Codice)
{
    switch (Codice) {
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return Errore(errori::DiscoPieno);
    case ENOENT:
    case ENOTDIR:
        return Errore(errori::PercorsoMancante);
    case EIO:
        return Errore(errori::Periferica);
    default:
        return Errore(errori::Accesso);
    }
}
