// Notes of many lines, for the measures of the windows.
#pragma once

#include "feenote/modParametri.h"
#include "feenote/parcella.h"

/// A civil note at the ordinary court with as many honoraria and as many expenses.
inline void RiempiNota(Parcella& Nota, int Righe)
{
    SelezionaInSilenzio(Nota, 0, 2, 2);
    ImpostaValoreInSilenzio(Nota, 30000);
    for (int i = 0; i < Righe; ++i) {
        const int Onorario = Nota.xOnorari.AggiungiRiga();
        Nota.xOnorari(Onorario, OnoDescr) = QStringLiteral("Fase istruttoria, udienza %1").arg(i);
        Nota.xOnorari(Onorario, OnoQta) = 1.0;
        for (const int Colonna : {OnoImporto, OnoMedio, OnoMin, OnoMax, OnoBaseMedio, OnoBaseMin, OnoBaseMax})
            Nota.xOnorari(Onorario, Colonna) = 1200.0 + i;
        const int Spesa = Nota.xDiritti.AggiungiRiga();
        Nota.xDiritti(Spesa, DirDescr) = QStringLiteral("Diritti di copia %1").arg(i);
        Nota.xDiritti(Spesa, DirQta) = QStringLiteral("1");
        Nota.xDiritti(Spesa, DirImponibile) = 12.5;
    }
}
