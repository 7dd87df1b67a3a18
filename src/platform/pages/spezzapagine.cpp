#include "platform/pages/spezzapagine.h"

#include <cstddef>

namespace {

// Sums of the same heights in another order may differ in their last digits.
constexpr double Tolleranza = 1e-6;

/// Places what fits on a page from the strip `Prima` on.
/// @param Scesa where the page's strips begin, from its top
/// @return the first strip that does not stand on it
std::size_t RiempiPagina(std::span<const Striscia> Tutte, std::size_t Prima, int Pagina, double Altezza,
                         double Scesa, std::vector<PostoStriscia>& Posti)
{
    const bool ConTitoli = Pagina > 1 && Tutte[Prima].TitoliSopra > 0.0;
    double Y = ConTitoli ? Tutte[Prima].TitoliSopra : Scesa;
    std::size_t Questa = Prima;
    for (; Questa < Tutte.size(); ++Questa) {
        const bool Sta = Y + Tutte[Questa].Altezza <= Altezza + Tolleranza;
        if (Questa > Prima && (Tutte[Questa].NuovaPagina || (!Sta && !Tutte[Questa].Bianca)))
            break;
        const bool InFondo = !Sta && Tutte[Questa].Bianca;
        Posti[Questa] = {Pagina, Y, InFondo, ConTitoli && Questa == Prima};
        if (!InFondo)
            Y += Tutte[Questa].Altezza;
    }
    return Questa;
}

/// The strip that begins the next page, when `Fuori` is the first one that does not stand on this one.
std::size_t InizioSeguente(std::span<const Striscia> Tutte, std::size_t Prima, std::size_t Fuori)
{
    if (Tutte[Fuori].NuovaPagina)
        return Fuori;
    std::size_t Inizio = Fuori;
    while (Inizio > Prima && Tutte[Inizio].Unita)
        --Inizio;
    if (Inizio == Prima)
        return Fuori;
    while (Inizio < Fuori && Tutte[Inizio].Bianca)  // they stay where they are, at the end of the page
        ++Inizio;
    return Inizio;
}

}  // namespace

std::vector<PostoStriscia> SpezzaPagine(std::span<const Striscia> Tutte, double AltezzaPagina, double Scesa)
{
    std::vector<PostoStriscia> Posti(Tutte.size());
    std::size_t Prima = 0;
    for (int Pagina = 1; Prima < Tutte.size(); ++Pagina) {
        const std::size_t Fuori =
            RiempiPagina(Tutte, Prima, Pagina, AltezzaPagina, Pagina == 1 ? Scesa : 0.0, Posti);
        Prima = Fuori < Tutte.size() ? InizioSeguente(Tutte, Prima, Fuori) : Fuori;
    }
    return Posti;
}
