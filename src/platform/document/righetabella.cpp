#include "platform/document/righetabella.h"

#include <algorithm>

std::size_t ColonneCoperte(const RigaTabella& Riga, std::size_t Colonna)
{
    return std::clamp<std::size_t>(static_cast<std::size_t>(std::max(Riga[Colonna].Unione, 1)), 1,
                                   Riga.size() - Colonna);
}

bool CellaBianca(const Cella& Questa)
{
    return std::all_of(Questa.Testo.begin(), Questa.Testo.end(), [](QChar C) { return C.isSpace(); });
}

bool RigaBianca(const RigaTabella& Riga)
{
    return std::ranges::all_of(Riga, CellaBianca);
}

bool CellaFiletto(const Cella& Questa)
{
    return !Questa.Testo.isEmpty() &&
           std::all_of(Questa.Testo.begin(), Questa.Testo.end(), [](QChar C) { return C == u'_'; });
}

bool RigaDiFiletti(const Tabella& Questa, std::size_t Riga)
{
    const RigaTabella& Celle = Questa.Righe[Riga];
    return !Questa.Letterale && !RigaBianca(Celle) && std::ranges::all_of(Celle, [](const Cella& Singola) {
        return CellaBianca(Singola) || CellaFiletto(Singola);
    });
}

std::size_t RigheDiTitoli(const Tabella& Questa)
{
    const bool Titoli = !Questa.Letterale && Questa.Righe.size() > 2 && !RigaBianca(Questa.Righe[0]) &&
                        RigaBianca(Questa.Righe[1]) && !RigaBianca(Questa.Righe[2]);
    return Titoli ? 2 : 0;
}

bool PuoStareIntera(const Tabella& Questa)
{
    constexpr std::size_t Poche = 8;  // headings, four lines, rule and total
    return RigheDiTitoli(Questa) == 0 || Questa.Righe.size() <= Poche;
}

bool UnitaAllaPrecedente(const Tabella& Questa, std::size_t Riga, bool Intera)
{
    if (Riga == 0)
        return false;
    const std::size_t Titoli = RigheDiTitoli(Questa);
    if (Intera || (Titoli > 0 && Riga <= Titoli))
        return true;
    const std::size_t Sotto = Questa.Righe.size() - Riga - 1;
    const bool Ultima = Sotto == 0 || (Sotto == 1 && RigaBianca(Questa.Righe[Riga]));
    const bool Estrema = Titoli == 0 && (Riga == 1 || Ultima);
    return Estrema || RigaDiFiletti(Questa, Riga) || RigaDiFiletti(Questa, Riga - 1);
}

bool ConLinee(const Tabella& Questa)
{
    return Questa.Bordo > 0 || std::ranges::any_of(Questa.Righe, [](const RigaTabella& Riga) {
               return std::ranges::any_of(Riga, [](const Cella& Singola) { return Singola.Linee != 0; });
           });
}

int LineeDi(const Tabella& Questa, const Cella& Quale)
{
    return Questa.Bordo > 0 ? Cella::Alto | Cella::Sinistro | Cella::Basso | Cella::Destro : Quale.Linee;
}
