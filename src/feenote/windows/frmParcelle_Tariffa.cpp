// The choice of the tariff of new notes, to which a note leads.
#include "feenote/windows/frmParcelle.h"

#include "core/aperture.h"
#include "core/schedeimpostazioni.h"
#include "feenote/modCambioTariffa.h"
#include "feenote/modParametri.h"
#include "platform/kit/campo.h"

#include <utility>

void frmParcelle::ScegliTariffa()
{
    if (!ConcludiCampo() || !Aperture.Impostazioni)
        return;
    TariffaChiestaDa = NumeroNota;
    Aperture.Impostazioni(impostazioni::SchedaDatiContabili, false);
}

void frmParcelle::SegueTariffa()
{
    const bool Chiesta = std::exchange(TariffaChiestaDa, 0) == NumeroNota && NumeroNota != 0;
    if (Chiesta && Nota.Percorso.isEmpty() && Nota.xOnorari.Vuota()) {
        // Nothing of the user's has changed.
        const Parcella Prima = Nota;
        (void)CambiaTariffa(Nota, DecretoNuove());
        SetModificata(Prima.Modificata);
        Storia.Dimentica(Nota);
        if (ParametriDiversi(Prima, Nota))
            TornaAllaBase();  // an office or a bracket may have been lost: they are tested on leaving
    }
    MostraTutto();
}
