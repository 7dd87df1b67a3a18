#include "platform/database/giornale.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"

using namespace Qt::StringLiterals;

void TogliGiornale(const QString& Percorso)
{
    const QString Giornale = Percorso + u"-journal"_s;
    if (!EsisteFile(Giornale) || SolaLettura(Percorso) || GiornaleAltrui(Percorso))
        return;
    try {
        Connessione Conn(Percorso, Connessione::Modo::Scrittura);
        // The engine has undone what was half written before it gives the turn; from then on nobody writes.
        const Blocco Sola(Conn);
        ScartaFile(Giornale);
    } catch (const Errore&) {
        return;  // somebody is at work, or it is none of the engine's
    }
}
