// The note that the tests of states reckon with.
#pragma once

#include "feenote/modInterruttori.h"
#include "feenote/modStato.h"
#include "feenote/parcella.h"

/// A new note of one line of 1.000,00 with 15 % of general expenses, 4 % of fund, 22 % of VAT: 1.459,12 of
/// net.
/// @param Tipo the document in view
inline Parcella NotaDaMille(int Tipo)
{
    Parcella Nuova;
    Nuova.Stato = StatoDiNuova();
    Nuova.xOnorari.AggiungiRiga();
    Nuova.xOnorari(0, OnoImporto) = 1000.0;
    Nuova.chkSpeseGen.Attiva = Nuova.chkCP.Attiva = Nuova.chkIva.Attiva = true;
    Nuova.txtSpeGen.Testo = QStringLiteral("15");
    Nuova.txtCP.Testo = QStringLiteral("4");
    Nuova.txtIVA.Testo = QStringLiteral("22");
    RicordaStampa(Nuova);
    ScegliTipoStampa(Nuova, Tipo);
    return Nuova;
}
