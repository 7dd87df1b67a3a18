#include "feenote/modResti.h"

#include "platform/base/decimale.h"
#include "platform/base/regionale.h"

#include <algorithm>

namespace {

/// How much of the payments is spent, with VAT.
struct Spesi
{
    double Propri = 0.0;
    double DelSocio = 0.0;
};

/// What the roundings of taxes may differ by between a payment and its parts, for each invoice.
constexpr double Scarto = 0.01;

/// Pays a document. The payments of the associated note go first: they pay no document of this note alone.
/// @param Capienza what it still takes
/// @param Margine cents that may be missing where an earlier one was paid first
/// @return what it has got
double Paga(const DocumentoDaPagare& Questo, double Capienza, double Margine, Spesi& Fin)
{
    const double DelSocio = Questo.ConSocio ? std::max(0.0, Questo.DelSocio) : 0.0;
    const double GiaDelSocio = Questo.ConSocio ? Fin.DelSocio * Questo.Quota : 0.0;
    const double Gia = Fin.Propri * Questo.Quota + GiaDelSocio;
    const double Inizio = std::max(Questo.Nominati, Arrotonda2(Gia));
    const double Restano = std::max(0.0, Questo.Propri + DelSocio - Inizio);
    double Preso = std::clamp(Restano, 0.0, std::max(0.0, Capienza));
    if (Preso > 0 && Gia > 0 && Arrotonda2(Capienza - Preso) <= Margine)
        Preso = Capienza;
    const double Fine = Inizio + Preso;
    if (Fine <= Gia)
        return Preso;
    const double Suoi = std::max(GiaDelSocio, std::min(DelSocio, Fine));
    if (Questo.ConSocio)
        Fin.DelSocio = Suoi / Questo.Quota;
    Fin.Propri = std::max(Fin.Propri, (Fine - Suoi) / Questo.Quota);
    return Preso;
}

}  // namespace

QList<double> RestiDeiDocumenti(const QList<DocumentoDaPagare>& Documenti)
{
    QList<double> Stornati(Documenti.size(), 0.0);
    for (qsizetype i = 0, Fattura = -1; i < Documenti.size(); ++i) {
        if (!Documenti[i].Storno)
            Fattura = i;
        else if (Fattura >= 0)
            Stornati[Fattura] += std::max(0.0, Documenti[i].Netto);
    }
    QList<double> Resti;
    for (const DocumentoDaPagare& Uno : Documenti)
        Resti.append(std::max(0.0, Uno.Netto));
    const double Margine = Scarto * double(std::ranges::count(Documenti, false, &DocumentoDaPagare::Storno));
    Spesi Fin;
    for (const bool Stornato : {false, true})
        for (qsizetype i = 0; i < Documenti.size(); ++i)
            if (!Documenti[i].Storno)
                Resti[i] = Arrotonda2(
                    Resti[i] - Paga(Documenti[i], Resti[i] - (Stornato ? 0.0 : Stornati[i]), Margine, Fin));
    return Resti;
}
