#include "core/indirizzi.h"

#include "core/parametri.h"
#include "core/versione.h"

using namespace Qt::StringLiterals;

namespace indirizzi {

QString Normalizzato(const QString& Scritto)
{
    QString Indirizzo = Scritto.trimmed().isEmpty() ? ServerCostruito().trimmed() : Scritto.trimmed();
    while (Indirizzo.endsWith(u'/'))
        Indirizzo.chop(1);
    if (!Indirizzo.isEmpty() && !Indirizzo.contains(u"://"))
        Indirizzo.prepend(u"https://"_s);
    return Indirizzo;
}

QString Server()
{
    return Normalizzato(Impostazione(ChiaveServer.toString()));
}

QString Editore()
{
    const QString Radice = Server();
    return Radice.isEmpty() ? QString() : Radice + u"/vdm.asp#editore"_s;
}

QString Sviluppatore()
{
    const QString Radice = Server();
    return Radice.isEmpty() ? QString() : Radice + u"/vdm.asp#sviluppo"_s;
}

}  // namespace indirizzi
