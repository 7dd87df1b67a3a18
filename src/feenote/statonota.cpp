#include "feenote/statonota.h"

#include <algorithm>

namespace {

struct NomeDiStato
{
    StatoNota Stato;
    QStringView Nome;
};

constexpr std::array Nomi{
    NomeDiStato{StatoNota::Bozza, u"Bozza"},
    NomeDiStato{StatoNota::Inviata, u"Inviata"},
    NomeDiStato{StatoNota::Fatturata, u"Fatturata"},
    NomeDiStato{StatoNota::Pagata, u"Pagata"},
};

}  // namespace

QString NomeStato(StatoNota Stato)
{
    const auto Suo = std::ranges::find(Nomi, Stato, &NomeDiStato::Stato);
    return Suo == Nomi.end() ? QString() : Suo->Nome.toString();
}

std::optional<StatoNota> StatoDelNome(QStringView Nome)
{
    const auto Suo = std::ranges::find_if(
        Nomi, [&](const NomeDiStato& Voce) { return Voce.Nome.compare(Nome, Qt::CaseInsensitive) == 0; });
    return Suo == Nomi.end() ? std::nullopt : std::optional(Suo->Stato);
}

StatoTenuto StatoDiNuova()
{
    StatoTenuto Tenuto;
    Tenuto.Stato = StatoNota::Bozza;
    return Tenuto;
}
