#include "feenote/previgenti/modTariffeVecchie.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"

using namespace Qt::StringLiterals;

namespace {

// Markers of the older tables.
constexpr double MarcaNulla = 999999999;
constexpr double MarcaPercento = -999999995;
constexpr double MarcaScalaA = -999999990;
constexpr double MarcaMezzaScalaA = -999999991;
constexpr double MarcaScalaB = -999999999;
constexpr double MarcaTrentaScalaB = -999999998;
constexpr double MarcaQuarantaScalaB = -999999997;
constexpr double MarcaScalaC = -888888888;

constexpr double MinimoScalaC = 155;

/// One step of a ladder: (value - Da) x Tasso + Base, while the value does not pass the limit.
struct Gradino
{
    double Limite;
    double Da;
    double Tasso;
    double Base;
};

double SuGradini(const std::array<Gradino, 3>& Scala, double Imp, bool Compreso)
{
    const auto Entro = [&](const Gradino& Passo) {
        return Compreso ? Imp <= Passo.Limite : Imp < Passo.Limite;
    };
    const auto Trovato = std::find_if(Scala.begin(), Scala.end() - 1, Entro);
    return (Imp - Trovato->Da) * Trovato->Tasso + Trovato->Base;
}

double ScalaA(double Imp, const QString& Tipo)
{
    constexpr double Oltre = std::numeric_limits<double>::infinity();
    static constexpr std::array<Gradino, 3> Minimi{{{1033000, 516500, 0.0075, 6069.75},
                                                    {2582300, 1033000, 0.005, 9943.5},
                                                    {Oltre, 2582300, 0.0025, 17690}}};
    static constexpr std::array<Gradino, 3> Massimi{{{1033000, 516500, 0.03, 18053.25},
                                                     {2582300, 1033000, 0.02, 33548.25},
                                                     {Oltre, 2582300, 0.01, 64534.25}}};
    return SuGradini(Tipo.toLower() == u"min" ? Minimi : Massimi, Imp, true);
}

double ScalaB(double Imp, const QString& Tipo, const ContestoVecchio& Contesto)
{
    constexpr double Primo = 2582300;
    constexpr double Secondo = 5164600;
    constexpr double Terzo = 25822900;
    double R = Contesto.Campo(11, Tipo) + Round((std::min(Imp, Secondo) - Primo) * 0.01);
    if (Imp > Secondo)
        R += Round((std::min(Imp, Terzo) - Secondo) * 0.01);
    if (Imp > Terzo)
        R += Round((Imp - Terzo) * 0.005);
    return R;
}

double ScalaC(double Imp, const QString& Tipo)
{
    const bool Minimo = Tipo == u"Min";
    if (Imp < (Minimo ? 5167.0 : 3100.0))
        return MinimoScalaC;
    constexpr double Oltre = std::numeric_limits<double>::infinity();
    static constexpr std::array<Gradino, 3> Minimi{
        {{5200.01, 0, 0.03, 0}, {25900.01, 5200, 0.015, 156}, {Oltre, 25900, 0.005, 466.5}}};
    static constexpr std::array<Gradino, 3> Massimi{
        {{5200.01, 0, 0.05, 0}, {25900.01, 5200, 0.02, 260}, {Oltre, 25900, 0.01, 674}}};
    return Arrotonda2(SuGradini(Minimo ? Minimi : Massimi, Imp, false));
}

double Decodifica(double Valore, const QString& Tipo, const ContestoVecchio& Contesto)
{
    const double Imp = Contesto.ValoreCausa;
    if (Valore == MarcaNulla || Valore == 0)
        return 0.0;
    if (Valore > 0 && Valore < 1)
        return Arrotonda2(Valore * Contesto.ValoreCasella);
    if (Valore == MarcaPercento)
        return Arrotonda2(Imp * (Tipo == u"Min" ? 0.005 : 0.05));
    if (Valore == MarcaScalaA)
        return Arrotonda2(ScalaA(Imp, Tipo));
    if (Valore == MarcaMezzaScalaA)
        return Arrotonda2(Arrotonda2(ScalaA(Imp, Tipo)) / 2);
    if (Valore == MarcaScalaB)
        return ScalaB(Imp, Tipo, Contesto);
    if (Valore == MarcaTrentaScalaB)
        return Arrotonda2(ScalaB(Imp, Tipo, Contesto) / 100 * 30);
    if (Valore == MarcaQuarantaScalaB)
        return Arrotonda2(ScalaB(Imp, Tipo, Contesto) / 100 * 40);
    if (Valore == MarcaScalaC)
        return ScalaC(Imp, Tipo);
    return Valore < 0 ? CalcolaMinMaxDaPerc(-Valore, Tipo, Contesto) : Valore;
}

}  // namespace

ContestoVecchio ContestoDi(const Parcella& Nota, const Recordset& Voce)
{
    ContestoVecchio Contesto;
    Contesto.ValoreCausa = Nota.ImportoPrec;
    Contesto.ValoreCasella = Nota.txtImporto.Numero();
    Contesto.QtaOno = Voce.Value(u"QtaOno"_s, QString()).toString();
    for (int i = 0; i < Nota.ListaScaglioni.size(); ++i)
        Contesto.ScaA[size_t(i)] = Nota.ListaScaglioni[i].AVal;
    Contesto.Campo = [Voce](int Scaglione, const QString& Estremo) {
        return ImportoCatalogo(Voce, Scaglione, Estremo);
    };
    return Contesto;
}

double CalcolaMinMax(double Valore, const QString& Tipo, const ContestoVecchio& Contesto)
{
    double Risultato = Decodifica(Valore, Tipo, Contesto);
    if (Contesto.QtaOno.startsWith(u'>'))
        Risultato = std::max(Risultato, NumeroDi(Contesto.QtaOno.mid(1)));
    return Round(Risultato);
}

double CalcolaMinMaxDaPerc(double, const QString& Tipo, const ContestoVecchio& Contesto)
{
    const double Valore = Contesto.ValoreCasella;
    double Precedente = 0.0;
    double Totale = 0.0;
    for (int i = 0; i < MassimoScaglioni; ++i) {
        const double Hi = Contesto.ScaA[size_t(i)];
        Totale += -1 * Contesto.Campo(i + 1, Tipo) * (std::min(Hi, Valore) - Precedente);
        if (Valore <= Hi)
            return Totale;
        Precedente = Hi;
    }
    throw Errore(errori::Indice);
}
