// Formulas: any text at any x, which stands in the first line, gives a finite number or a code, and nothing
// else.
#include "fonte.h"

#include "tariffs/modEvaluate.h"

#include <cmath>

namespace {

bool CodicePrevisto(int Codice)
{
    return (Codice >= 0 && Codice <= 7) || Codice == 18;
}

void Prova(const QByteArray& Dati)
{
    Fonte Da(Dati);
    const double x = Da.Riga().toDouble();
    const QString Testo = QString::fromUtf8(Da.Tutto());

    int Errore = -1;
    const double Valore = ValutaEspressione(Testo, x, Errore);
    Pretendi(std::isfinite(Valore));
    Pretendi(CodicePrevisto(Errore));
    Pretendi(Errore == 0 || Valore == 0.0);
    Pretendi(!MessaggioErrore(Errore).isEmpty());

    int Ancora = -1;
    Pretendi(ValutaEspressione(Testo, x, Ancora) == Valore && Ancora == Errore);
}

}  // namespace

BERSAGLIO(fuzz_espressione, Prova);
