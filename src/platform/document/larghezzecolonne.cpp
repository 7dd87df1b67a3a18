#include "platform/document/larghezzecolonne.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace {

constexpr double QuotaMinima = 0.4;

double Somma(std::span<const double> Tutte)
{
    return std::accumulate(Tutte.begin(), Tutte.end(), 0.0);
}

/// What each column lacks, at least 0.
std::vector<double> Mancanze(std::span<const double> Larghe, std::span<const double> Necessarie)
{
    std::vector<double> Mancano(Larghe.size());
    for (std::size_t i = 0; i < Larghe.size(); ++i)
        Mancano[i] = std::max(Necessarie[i] - Larghe[i], 0.0);
    return Mancano;
}

/// What each column can give away, at least 0.
std::vector<double> Cessioni(std::span<const double> Larghe, std::span<const double> Necessarie)
{
    std::vector<double> Cedono(Larghe.size());
    for (std::size_t i = 0; i < Larghe.size(); ++i)
        Cedono[i] = std::max(Larghe[i] - std::max(Necessarie[i], Larghe[i] * QuotaMinima), 0.0);
    return Cedono;
}

}  // namespace

std::vector<double> LarghezzeColonne(std::span<const double> Chieste, std::span<const double> Necessarie,
                                     double Spazio)
{
    std::vector<double> Larghe(Chieste.begin(), Chieste.end());
    if (const double Totale = Somma(Larghe); Totale > Spazio)
        for (double& Una : Larghe)
            Una *= Spazio / Totale;

    const std::vector<double> Mancano = Mancanze(Larghe, Necessarie);
    const double Manca = Somma(Mancano);
    if (Manca <= 0.0)
        return Larghe;
    const std::vector<double> Cedono = Cessioni(Larghe, Necessarie);
    const double Libero = std::max(Spazio - Somma(Larghe), 0.0);
    const double Cedibile = Somma(Cedono);
    const double Dato = std::min(Manca, Libero + Cedibile);
    const double Ceduto = std::max(Dato - Libero, 0.0);
    for (std::size_t i = 0; i < Larghe.size(); ++i) {
        Larghe[i] += Mancano[i] * (Dato / Manca);
        if (Cedibile > 0.0)
            Larghe[i] -= Cedono[i] * (Ceduto / Cedibile);
    }
    return Larghe;
}
