#include "platform/base/nomidate.h"

#include "platform/base/errore.h"

namespace {

template <size_t Posti>
QString Nome(const std::array<QStringView, Posti>& Nomi, int Numero)
{
    if (Numero < 1 || Numero >= int(Posti))
        throw Errore(errori::Indice);
    return Nomi[size_t(Numero)].toString();
}

}  // namespace

QString NomeMese(int Mese)
{
    return Nome(NomiMesi, Mese);
}

QString NomeGiorno(int Giorno)
{
    return Nome(NomiGiorni, Giorno);
}
