#include "print/writers/formatabella.h"

#include "platform/document/larghezzecolonne.h"
#include "platform/document/misura.h"
#include "print/writers/misuretesto.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double MezzoMargineCm = 0.075;

/// What numbers and rules are made of.
bool DaNumero(QStringView Parola)
{
    return std::all_of(Parola.begin(), Parola.end(), [](QChar C) {
        return C.isDigit() || C == u'_' || C == u'.' || C == u',' || C == u'-' || C == u'(' || C == u')';
    });
}

/// The room that a column needs for the widest of its numbers, which would be read wrong if they were broken.
double LarghezzaNecessaria(const Tabella& Questa, std::size_t Colonna, bool Lineata)
{
    constexpr double Agio = 0.01;
    constexpr qsizetype MassimoSegni =
        18;  // what is longer in a column of words is a code, and may be broken
    double Massima = 0.0;
    for (const RigaTabella& Riga : Questa.Righe) {
        if (Colonna >= Riga.size() || Riga[Colonna].Unione != 1)
            continue;
        const Cella& Singola = Riga[Colonna];
        const bool DiImporti =
            Singola.Allinea == Allineamento::Destra || Singola.Allinea == Allineamento::Centro;
        for (const QStringView Parola : QStringView(Singola.Testo).split(u' '))
            if (DaNumero(Parola) && (DiImporti || Parola.size() <= MassimoSegni))
                Massima = std::max(Massima, LarghezzaTesto(Parola, Singola.Font));
    }
    const MarginiCella Margini = MarginiDi(Colonna, Lineata);
    return Massima > 0.0 ? Massima + Margini.PrimaCm + Margini.DopoCm + Agio : 0.0;
}

// ---- heights

double AltezzaPunti(const Paragrafo& Questo, double LarghezzaCm)
{
    const Carattere& Font = Questo.Tratti.empty() ? Questo.Font : Questo.Tratti.front().Font;
    const double Utile = LarghezzaCm - Questo.Spazi.SinistroCm - Questo.Spazi.DestroCm;
    double Riga = AltezzaRigaPunti(Font) * std::max(Questo.Righe.Multipla, 1.0);
    Riga =
        Questo.Righe.EsattaPunti > 0.0 ? Questo.Righe.EsattaPunti : std::max(Riga, Questo.Righe.AlmenoPunti);
    return Riga * RigheTesto(Questo.Testo(), Font, Utile) + Questo.Spazi.SopraPunti + Questo.Spazi.SottoPunti;
}

double AltezzaPunti(const Cella& Questa, double LarghezzaCm)
{
    if (Questa.Paragrafi.empty())
        return AltezzaRigaPunti(Questa.Font) * RigheTesto(Questa.Testo, Questa.Font, LarghezzaCm);
    double Somma = 0.0;
    for (const Paragrafo& Singolo : Questa.Paragrafi)
        Somma += AltezzaPunti(Singolo, LarghezzaCm);
    return Somma;
}

double AltezzaPunti(const Tabella& Questa, std::size_t Quale, const std::vector<double>& Larghezze,
                    bool Lineata)
{
    const RigaTabella& Riga = Questa.Righe[Quale];
    double Massima = 0.0;
    for (std::size_t Colonna = 0; Colonna < Riga.size(); Colonna += ColonneCoperte(Riga, Colonna)) {
        const MarginiCella Margini = MarginiDi(Colonna, Lineata);
        double Larga = -Margini.PrimaCm - Margini.DopoCm;
        for (std::size_t i = Colonna; i < Colonna + ColonneCoperte(Riga, Colonna); ++i)
            Larga += Larghezze[i];
        Massima = std::max(Massima, AltezzaPunti(Riga[Colonna], Larga));
    }
    return RigaDiFiletti(Questa, Quale) ? Massima * QuotaRigaFiletti : Massima;
}

}  // namespace

MarginiCella MarginiDi(std::size_t Colonna, bool Lineata)
{
    if (Lineata)
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
    const bool Lineata = ConLinee(Questa);
    for (std::size_t Colonna = 0; Colonna < Tutte.size(); ++Colonna)
        Necessarie.push_back(Questa.Letterale ? 0.0 : LarghezzaNecessaria(Questa, Colonna, Lineata));
    return LarghezzeColonne(Tutte, Necessarie, MassimaCm);
}

bool TabellaIntera(const Tabella& Questa, const Documento& Doc, const Carta& Foglio)
{
    if (!PuoStareIntera(Questa))
        return false;
    const std::vector<double> Larghezze = LarghezzeEntro(Questa, LarghezzaTestoCm(Doc, Foglio));
    const bool Lineata = ConLinee(Questa);
    double Punti = 0.0;
    for (std::size_t Riga = 0; Riga < Questa.Righe.size(); ++Riga)
        Punti += AltezzaPunti(Questa, Riga, Larghezze, Lineata);
    const double PaginaCm = Foglio.AltezzaMm / 10.0 - Doc.MargineAltoCm - Doc.MargineBassoCm;
    return Punti * CmPerPunto <= PaginaCm * QuotaTabellaIntera;
}

bool UnitaAllaSeguente(const Tabella& Questa, std::size_t Riga, bool Intera)
{
    return Riga + 1 < Questa.Righe.size() ? UnitaAllaPrecedente(Questa, Riga + 1, Intera)
                                          : Questa.ConSeguente;
}

double LarghezzaTestoCm(const Documento& Doc, const Carta& Foglio)
{
    constexpr double MinimaCm = 2.0;
    return std::max(Foglio.LarghezzaMm / 10.0 - Doc.MargineSinistroCm - Doc.MargineDestroCm, MinimaCm);
}
