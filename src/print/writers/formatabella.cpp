#include "print/writers/formatabella.h"

#include "platform/document/larghezzecolonne.h"

#include <algorithm>

using namespace Qt::StringLiterals;

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

// ---- widths

constexpr double MezzoMargineCm = 0.075;

/// The advance of what numbers and rules are made of, in ems of the fonts with serifs and of those without;
/// 0 for any other character.
double QuotaEm(QChar C, bool Bastoni)
{
    if (C.isDigit() || C == u'_')
        return Bastoni ? 0.556 : 0.5;
    if (C == u'.' || C == u',')
        return Bastoni ? 0.278 : 0.25;
    return C == u'-' || C == u'(' || C == u')' ? 0.333 : 0.0;
}

/// Width of what is made of digits and their signs, in centimetres; 0 for a word.
double LarghezzaNumero(QStringView Parola, const Carattere& Font)
{
    constexpr double CmPerPunto = 2.54 / 72.0;
    const bool Bastoni = Font.Nome.contains("Arial"_L1) || Font.Nome.contains("Sans"_L1);
    double Em = 0.0;
    for (const QChar C : Parola) {
        const double Suo = QuotaEm(C, Bastoni);
        if (Suo <= 0.0)
            return 0.0;
        Em += Suo;
    }
    return Em * Font.Punti * CmPerPunto;
}

/// The room that a column needs for the widest of its numbers, which would be read wrong if they were broken.
double LarghezzaNecessaria(const Tabella& Questa, std::size_t Colonna)
{
    constexpr double Agio = 0.01;
    constexpr qsizetype MassimoSegni =
        18;  // what is longer in a column of words is a code, and may be broken
    double Massima = 0.0;
    for (const RigaTabella& Riga : Questa.Righe) {
        if (Colonna >= Riga.size() || Riga[Colonna].Unione != 1)
            continue;
        const Cella& Una = Riga[Colonna];
        const bool DiImporti = Una.Allinea == Allineamento::Destra || Una.Allinea == Allineamento::Centro;
        for (const QStringView Parola : QStringView(Una.Testo).split(u' '))
            if (DiImporti || Parola.size() <= MassimoSegni)
                Massima = std::max(Massima, LarghezzaNumero(Parola, Una.Font));
    }
    const MarginiCella Suoi = MarginiDi(Questa, Colonna);
    return Massima > 0.0 ? Massima + Suoi.PrimaCm + Suoi.DopoCm + Agio : 0.0;
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

MarginiCella MarginiDi(const Tabella& Questa, std::size_t Colonna)
{
    if (Questa.Bordo > 0)
        return {MezzoMargineCm, MezzoMargineCm};
    return {Colonna == 0 ? 0.0 : 2.0 * MezzoMargineCm, 0.0};
}

std::vector<double> LarghezzeEntro(const Tabella& Questa, double MassimaCm)
{
    constexpr double MinimaCm = 0.02;  // a column of no width is none to a word processor
    constexpr double FoglioCm = 55.0;
    std::vector<double> Tutte;
    Tutte.reserve(Questa.LarghezzeCm.size());
    for (const double Una : Questa.LarghezzeCm)
        Tutte.push_back(std::clamp(Una, MinimaCm, FoglioCm));
    std::vector<double> Necessarie;
    Necessarie.reserve(Tutte.size());
    for (std::size_t Colonna = 0; Colonna < Tutte.size(); ++Colonna)
        Necessarie.push_back(LarghezzaNecessaria(Questa, Colonna));
    return LarghezzeColonne(Tutte, Necessarie, MassimaCm);
}

bool UnitaAllaSeguente(const Tabella& Questa, std::size_t Riga)
{
    if (Riga + 1 >= Questa.Righe.size())
        return Questa.ConSeguente;
    // Where nothing is repeated the table is a head or a summary, which is read in one piece.
    return RigheDiTitoli(Questa) == 0 || Riga < RigheDiTitoli(Questa) || RigaDiFiletti(Questa.Righe[Riga]) ||
           RigaDiFiletti(Questa.Righe[Riga + 1]);
}

double LarghezzaTestoCm(const Documento& Doc, const Carta& Foglio)
{
    constexpr double MinimaCm = 2.0;
    return std::max(Foglio.LarghezzaMm / 10.0 - Doc.MargineSinistroCm - Doc.MargineDestroCm, MinimaCm);
}
