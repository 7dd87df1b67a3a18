// The boxes of the form of terms, counted by the program's own rules.
#pragma once

#include "calculators/modTermini.h"
#include "platform/base/regionale.h"

/// @throws Errore 5 outside the calendar, 13 or 6 a number of no use
inline ContoTermine CalcolaTermine(const DatiTermine& Dati)
{
    ContoTermine Conto;
    Conto.Opzioni = Dati.Opzioni;
    Conto.DataCorrente = CDate(SenzaSecolo(Dati.Decorrenza));
    ContaTermine(Conto, CInt(Dati.Numero), Dati.Tipo);
    return Conto;
}
