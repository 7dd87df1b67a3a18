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
/// Each of the two lists is spent for itself: what a document has taken away of one is none of the other's.
/// @param Capienza what it still takes
/// @param Margine cents that may be missing where an earlier one was paid first
/// @return what it has got
double Paga(const DocumentoDaPagare& Questo, double Capienza, double Margine, Spesi& Fin)
{
    const double DelSocio = Questo.ConSocio ? std::max(0.0, Questo.DelSocio) : 0.0;
    const double GiaDelSocio = Questo.ConSocio ? Fin.DelSocio * Questo.Quota : 0.0;
    const double GiaPropri = Fin.Propri * Questo.Quota;
    // What has gone from one list since counts as taken away from the other: it was written there anew.
    const double AlPiu = std::max(0.0, std::min(DelSocio, Questo.Nominati));
    const double AlMeno = std::clamp(Questo.Nominati - Questo.Propri, 0.0, AlPiu);
    const double Nominati = std::clamp(Questo.NominatiDelSocio, AlMeno, AlPiu);
    // No more than there is: a payment that has gone from one list takes none of the other's.
    const double InizioDelSocio = std::min(std::max(Nominati, Arrotonda2(GiaDelSocio)), DelSocio);
    const double InizioPropri =
        std::min(std::max(Questo.Nominati - Nominati, Arrotonda2(GiaPropri)), std::max(0.0, Questo.Propri));
    const double Restano = std::max(0.0, Questo.Propri + DelSocio - (InizioPropri + InizioDelSocio));
    double Preso = std::clamp(Restano, 0.0, std::max(0.0, Capienza));
    if (Preso > 0 && GiaPropri + GiaDelSocio > 0 && Arrotonda2(Capienza - Preso) <= Margine)
        Preso = Capienza;
    const double Suoi = std::clamp(Preso, 0.0, std::max(0.0, DelSocio - InizioDelSocio));
    Fin.DelSocio = std::max(Fin.DelSocio, Questo.ConSocio ? (InizioDelSocio + Suoi) / Questo.Quota : 0.0);
    Fin.Propri = std::max(Fin.Propri, (InizioPropri + Preso - Suoi) / Questo.Quota);
    return Preso;
}

}  // namespace

QList<double> RestiDeiDocumenti(const QList<DocumentoDaPagare>& Documenti)
{
    QList<double> Stornati(Documenti.size(), 0.0);
    for (const DocumentoDaPagare& Uno : Documenti)
        if (Uno.Storno && Uno.Ripresa >= 0)
            Stornati[Uno.Ripresa] += std::max(0.0, Uno.Netto);
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
