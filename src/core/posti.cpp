#include "core/posti.h"

#include "core/modTesti.h"
#include "core/sessione.h"
#include "platform/system/percorsi.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool ParcellaAperta()
{
    return std::any_of(InfoParcelle.begin() + 1, InfoParcelle.end(),
                       [](const InfoParcella& Posto) { return !Posto.Libera; });
}

int TrovaPostoParcella(const std::function<bool()>& Intatta)
{
    const bool Sola = UltimaParcella() == 1;
    for (int i = 1; i <= UltimaParcella(); ++i) {
        InfoParcella& Posto = InfoParcelle[size_t(i)];
        if (Posto.Libera || (Sola && !Posto.Modificata && Intatta && Intatta())) {
            Posto.Libera = false;
            return i;
        }
    }
    InfoParcelle.push_back({});
    return UltimaParcella();
}

void AzzeraParcelle()
{
    InfoParcelle.assign(1, {});
}

QString SteloDocumento(int Indice)
{
    const bool Posto = Indice >= 1 && Indice <= UltimaParcella();
    return Posto ? NomePerFile(InfoParcelle[size_t(Indice)].Nome) : QString();
}

QString FileDocumento(const QString& Stelo)
{
    return Barra(sessione::UserFolder) + Barra(u"doc"_s) + Stelo + u".doc"_s;
}

QString FileDocumento(int Indice)
{
    return FileDocumento(SteloDocumento(Indice));
}
