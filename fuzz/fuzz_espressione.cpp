// Formulas: any text at any x gives a finite number or a code, and nothing else.
#include "tariffs/modEvaluate.h"

#include <cmath>
#include <cstring>

namespace {

void Pretendi(bool Vero)
{
    if (!Vero)
        __builtin_trap();
}

bool CodicePrevisto(int Codice)
{
    return (Codice >= 0 && Codice <= 7) || Codice == 18;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Dati, size_t Quanti)
{
    double x = 0.0;
    if (Quanti < sizeof x)
        return 0;
    std::memcpy(&x, Dati, sizeof x);
    const auto* Caratteri = reinterpret_cast<const char*>(Dati) + sizeof x;
    const QString Testo = QString::fromUtf8(Caratteri, static_cast<qsizetype>(Quanti - sizeof x));

    int Errore = -1;
    const double Valore = ValutaEspressione(Testo, x, Errore);
    Pretendi(std::isfinite(Valore));
    Pretendi(CodicePrevisto(Errore));
    Pretendi(Errore == 0 || Valore == 0.0);
    Pretendi(!MessaggioErrore(Errore).isEmpty());

    int Ancora = -1;
    Pretendi(ValutaEspressione(Testo, x, Ancora) == Valore && Ancora == Errore);
    return 0;
}
