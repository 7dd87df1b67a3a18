// The one source that is compiled anew when the version changes.
#include "core/versione.h"

QString VersioneProgramma()
{
    return QStringLiteral(VERSIONE_PROGRAMMA);
}

QString ServerCostruito()
{
    return QStringLiteral(SERVER_AGGIORNAMENTI);
}
