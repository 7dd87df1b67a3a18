#include "platform/document/lettorertf_tabella.h"

#include "platform/document/misura.h"

#include <QStringList>

#include <algorithm>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimoTwip = 31680;
constexpr int CellaMinima = 100;  // a cell of no width holds nothing
constexpr int Vicini = 30;        // ends so near to each other are one: half a millimetre
constexpr std::size_t MassimoCelle = 64;
constexpr int LarghezzaSenzaMisure = 9000;  // of a row that says nothing of its cells

QString TestoDi(const std::vector<Paragrafo>& Tutti)
{
    QStringList Testi;
    for (const Paragrafo& Singolo : Tutti)
        Testi += Singolo.Testo();
    return Testi.join(u'\n');
}

}  // namespace

void TabellaRtf::AggiungiCella(int Destra)
{
    Prossima.Destra = std::clamp(Destra, -MassimoTwip, MassimoTwip);
    if (Definita.Celle.size() < MassimoCelle)
        Definita.Celle.push_back(Prossima);
    Prossima = {};
    Lato.reset();
}

void TabellaRtf::Traccia(bool Presente)
{
    if (!Lato)
        return;
    int& Linee = Lato->Dove == Bordo::Cella  ? Prossima.Linee
                 : Lato->Dove == Bordo::Riga ? Definita.Linee
                                             : Definita.Interne;
    Linee = Presente ? Linee | Lato->Quale : Linee & ~Lato->Quale;
}

void TabellaRtf::ChiudiCella()
{
    // What stands beyond the last cell that a row may have goes into that one.
    if (Celle.size() < MassimoCelle)
        Celle.push_back(std::exchange(Aperta, {}));
    else
        std::ranges::move(std::exchange(Aperta, {}), std::back_inserter(Celle.back()));
}

bool TabellaRtf::ChiudiRiga()
{
    if (!Aperta.empty())
        ChiudiCella();
    if (Celle.empty())
        return false;
    RigaLetta Riga{Definita, std::exchange(Celle, {})};
    Adatta(Riga);
    RaccogliBordi(Riga.Come);
    Righe.push_back(std::move(Riga));
    return true;
}

std::vector<Paragrafo> TabellaRtf::Sciolti()
{
    return Celle.empty() ? std::exchange(Aperta, {}) : std::vector<Paragrafo>();
}

/// Gives a row as many cells as it has texts, each wider than nothing, from the left margin on.
void TabellaRtf::Adatta(RigaLetta& Riga) const
{
    std::vector<CellaDefinita>& Definite = Riga.Come.Celle;
    const int Fuori = std::min(Riga.Come.Sinistra, 0);
    Riga.Come.Sinistra = std::clamp(Riga.Come.Sinistra - Fuori, 0, MassimoTwip);
    const int Larga = LarghezzaSenzaMisure / static_cast<int>(Riga.Testi.size());
    Definite.resize(std::min(Definite.size(), std::max<std::size_t>(Riga.Testi.size(), 1)));
    int Fine = Riga.Come.Sinistra;
    for (CellaDefinita& Cella : Definite) {
        Cella.Destra = std::max(Cella.Destra - Fuori, Fine + CellaMinima);
        Fine = Cella.Destra;
    }
    while (Definite.size() < Riga.Testi.size()) {
        Fine += std::max(Larga, CellaMinima);
        Definite.push_back({Fine});
    }
    for (std::size_t i = Definite.size() - 1; i > 0; --i) {
        if (!Definite[i].Continua)
            continue;
        Definite[i - 1].Destra = Definite[i].Destra;
        std::ranges::move(Riga.Testi[i], std::back_inserter(Riga.Testi[i - 1]));
        Definite.erase(Definite.begin() + static_cast<std::ptrdiff_t>(i));
        Riga.Testi.erase(Riga.Testi.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

void TabellaRtf::RaccogliBordi(const RigaDefinita& Riga)
{
    const auto Metti = [this](int Twip) {
        const auto Dopo = std::ranges::lower_bound(Bordi, Twip - Vicini);
        if (Dopo == Bordi.end() || *Dopo > Twip + Vicini)
            Bordi.insert(Dopo, Twip);
    };
    Metti(0);
    Metti(Riga.Sinistra);
    for (const CellaDefinita& Cella : Riga.Celle)
        Metti(Cella.Destra);
}

/// The column that begins at this place, or nearest to it.
std::size_t TabellaRtf::Colonna(int Twip) const
{
    const auto Dopo = std::ranges::lower_bound(Bordi, Twip);
    if (Dopo == Bordi.end())
        return Bordi.size() - 1;
    const bool PrimaPiuVicino = Dopo != Bordi.begin() && Twip - *std::prev(Dopo) < *Dopo - Twip;
    return static_cast<std::size_t>(Dopo - Bordi.begin()) - (PrimaPiuVicino ? 1 : 0);
}

std::vector<Cella> TabellaRtf::Risolta(const RigaLetta& Riga, bool Prima, bool Ultima) const
{
    const std::size_t Quante = Bordi.size() - 1;
    std::vector<Cella> Fatte(Quante);
    std::size_t Posto = std::min(Colonna(Riga.Come.Sinistra), Quante);
    for (std::size_t i = 0; i < Riga.Come.Celle.size() && Posto < Quante; ++i) {
        const CellaDefinita& Come = Riga.Come.Celle[i];
        const std::vector<Paragrafo>& Testi = Riga.Testi[i];
        const std::size_t Fine = std::clamp(Colonna(Come.Destra), Posto + 1, Quante);
        const bool UltimaCella = i + 1 == Riga.Come.Celle.size();
        Cella& Nuova = Fatte[Posto];
        Nuova.Linee = Come.Linee | ((Prima ? Riga.Come.Linee : Riga.Come.Interne) & Cella::Alto) |
                      (Ultima ? Riga.Come.Linee & Cella::Basso : 0) |
                      ((i == 0 ? Riga.Come.Linee : Riga.Come.Interne) & Cella::Sinistro) |
                      (UltimaCella ? Riga.Come.Linee & Cella::Destro : 0);
        Nuova.Unione = static_cast<int>(Fine - Posto);
        if (!Testi.empty()) {
            Nuova.Testo = TestoDi(Testi);
            Nuova.Allinea = Testi.front().Allinea;
            Nuova.Font =
                Testi.front().Tratti.empty() ? Testi.front().Font : Testi.front().Tratti.front().Font;
            Nuova.Paragrafi = Testi;
        }
        Posto = Fine;
    }
    return Fatte;
}

Tabella TabellaRtf::Chiudi()
{
    ChiudiRiga();
    Tabella Fatta;
    Fatta.Letterale = true;
    for (std::size_t i = 0; i + 1 < Bordi.size(); ++i)
        Fatta.LarghezzeCm.push_back((Bordi[i + 1] - Bordi[i]) / TwipPerCm);
    for (std::size_t i = 0; i < Righe.size(); ++i)
        Fatta.Righe.push_back(Risolta(Righe[i], i == 0, i + 1 == Righe.size()));
    // A row stands with the next one where all its text asks for it.
    Fatta.ConSeguente = !Righe.empty() && std::ranges::any_of(Righe.back().Testi, [](const auto& Testi) {
        return !Testi.empty() && Testi.back().ConSeguente;
    });
    Righe.clear();
    Bordi.clear();
    return Fatta;
}
