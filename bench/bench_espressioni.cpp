// The evaluator of the extrajudicial formulas.
#include "misura.h"

#include "tariffs/modEvaluate.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

double UnMilioneDiEspressioni()
{
    constexpr int Espressioni = 1'000'000;
    const std::array Formule{
        u"50+x*0.03"_s,
        u"150+x*0.08"_s,
        u"200+(x-5000)*0.02"_s,
        u"27250+(x-1500000)*0.005"_s,
    };
    return MedianaMs(3, [&Formule] {
        double Somma = 0.0;
        for (int i = 0; i < Espressioni; ++i) {
            int Errore = 0;
            Somma += ValutaEspressione(Formule[static_cast<std::size_t>(i) % Formule.size()], i, Errore);
        }
        Consuma(Somma);
    });
}
const RegistraMisura Registrata(u"a million expressions"_s, 2000.0, UnMilioneDiEspressioni);

}  // namespace
