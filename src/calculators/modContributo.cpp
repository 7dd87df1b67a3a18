#include "calculators/modContributo.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <limits>
#include <span>

namespace {

/// The fee that holds while the value stays below the limit.
struct Fascia
{
    double SottoEuro;
    double ContributoEuro;
};

constexpr double SenzaLimite = std::numeric_limits<double>::infinity();

// D.p.r. 115/2002, art. 13, comma 1.
constexpr std::array FasceOrdinarie{
    Fascia{1100.01, 43.0},    Fascia{5200.01, 98.0},     Fascia{26000.01, 237.0},     Fascia{52000.01, 518.0},
    Fascia{260000.01, 759.0}, Fascia{520000.01, 1214.0}, Fascia{SenzaLimite, 1686.0},
};

// Art. 13, comma 6-quater. The first limit carries no odd cent: it stands so.
constexpr std::array FasceTributarie{
    Fascia{2582.29, 30.0},   Fascia{5000.01, 60.0},    Fascia{25000.01, 120.0},
    Fascia{75000.01, 250.0}, Fascia{200000.01, 500.0}, Fascia{SenzaLimite, 1500.0},
};
static_assert(std::ranges::is_sorted(FasceOrdinarie, {}, &Fascia::SottoEuro));
static_assert(std::ranges::is_sorted(FasceTributarie, {}, &Fascia::SottoEuro));

double Cerca(std::span<const Fascia> Fasce, double ValoreEuro)
{
    const auto Sopra = std::ranges::upper_bound(Fasce, ValoreEuro, {}, &Fascia::SottoEuro);
    return Sopra == Fasce.end() ? Fasce.back().ContributoEuro : Sopra->ContributoEuro;
}

}  // namespace

double Contributo(double ValoreEuro, TabellaContributo Tabella)
{
    const double Valore = Round(ValoreEuro, 2);
    switch (Tabella) {
    case TabellaContributo::Tributaria:
        return Cerca(FasceTributarie, Valore);
    case TabellaContributo::Dimezzata:
        return Cerca(FasceOrdinarie, Valore) / 2;
    case TabellaContributo::Ordinaria:
        break;
    }
    return Cerca(FasceOrdinarie, Valore);
}

QString ValoreLasciato(const QString& Testo)
{
    try {
        return Format(Round(CDbl(Testo), 2), ModelloImporto);
    } catch (const Errore&) {
        return Testo;
    }
}

void CalcolaContributi(const TestiContributo& Valori, TestiContributo& Contributi)
{
    for (size_t i = 0; i < Valori.size(); ++i) {
        if (!Valori[i].isEmpty())
            Contributi[i] = Format(Contributo(CDbl(Valori[i]), TabelleCampi[i]), ModelloImporto);
        else if (i != CampoTributario)
            Contributi[i].clear();
    }
}
