#include "print/formatabella.h"

#include <algorithm>
#include <numeric>

namespace {

bool Vuota(const Cella& Questa)
{
    return std::all_of(Questa.Testo.begin(), Questa.Testo.end(), [](QChar C) { return C.isSpace(); });
}

bool Filetto(const Cella& Questa)
{
    return !Questa.Testo.isEmpty() &&
           std::all_of(Questa.Testo.begin(), Questa.Testo.end(), [](QChar C) { return C == u'_'; });
}

}  // namespace

std::size_t ColonneCoperte(const RigaTabella& Riga, std::size_t Colonna)
{
    return std::clamp<std::size_t>(static_cast<std::size_t>(std::max(Riga[Colonna].Unione, 1)), 1,
                                   Riga.size() - Colonna);
}

bool RigaBianca(const RigaTabella& Riga)
{
    return std::all_of(Riga.begin(), Riga.end(), Vuota);
}

bool RigaDiFiletti(const RigaTabella& Riga)
{
    return !RigaBianca(Riga) &&
           std::all_of(Riga.begin(), Riga.end(), [](const Cella& Una) { return Vuota(Una) || Filetto(Una); });
}

std::size_t RigheDiTitoli(const Tabella& Questa)
{
    const bool Titoli = Questa.Righe.size() > 2 && !RigaBianca(Questa.Righe[0]) &&
                        RigaBianca(Questa.Righe[1]) && !RigaBianca(Questa.Righe[2]);
    return Titoli ? 2 : 0;
}

std::vector<double> LarghezzeEntro(const Tabella& Questa, double MassimaCm)
{
    constexpr double MinimaCm = 0.02;  // a column of no width is none to a word processor
    constexpr double FoglioCm = 55.0;
    std::vector<double> Tutte;
    Tutte.reserve(Questa.LarghezzeCm.size());
    for (const double Una : Questa.LarghezzeCm)
        Tutte.push_back(std::clamp(Una, MinimaCm, FoglioCm));
    const double Somma = std::accumulate(Tutte.begin(), Tutte.end(), 0.0);
    if (Somma > MassimaCm)
        for (double& Una : Tutte)
            Una *= MassimaCm / Somma;
    return Tutte;
}

bool UnitaAllaSeguente(const Tabella& Questa, std::size_t Riga)
{
    if (Riga + 1 >= Questa.Righe.size())
        return false;
    // Where nothing is repeated the table is a head or a summary, which is read in one piece.
    return RigheDiTitoli(Questa) == 0 || Riga < RigheDiTitoli(Questa) || RigaDiFiletti(Questa.Righe[Riga]) ||
           RigaDiFiletti(Questa.Righe[Riga + 1]);
}

double LarghezzaTestoCm(const Documento& Doc, const Carta& Foglio)
{
    constexpr double MinimaCm = 2.0;
    return std::max(Foglio.LarghezzaMm / 10.0 - Doc.MargineSinistroCm - Doc.MargineDestroCm, MinimaCm);
}
