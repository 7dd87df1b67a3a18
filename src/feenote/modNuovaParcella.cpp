#include "feenote/modNuovaParcella.h"

#include "core/sessione.h"
#include "feenote/modInterruttori.h"
#include "feenote/modParametri.h"
#include "feenote/modVariazione.h"
#include "feenote/parcella.h"
#include "platform/base/regionale.h"

void AzzeraNota(Parcella& Nota)
{
    Parcella Nuova;
    Nuova.Nome = Nota.Nome;
    Nuova.InsUltimaOno = Nota.InsUltimaOno;
    Nuova.InsUltimaDir = Nota.InsUltimaDir;
    Nuova.IDMultipla = Nota.IDMultipla;  // windows are linked before the note comes into them
    Nota = std::move(Nuova);
    AzzeraVariazione(Nota);
    Nota.Pronta = true;
}

void NuovaParcella(Parcella& Nota)
{
    AzzeraNota(Nota);
    SelezionaInSilenzio(Nota, NessunaVoce, NessunaVoce, NessunaVoce);

    Nota.chkIva.Attiva = true;
    Nota.txtIVA.Testo = CStr(sessione::IVA);
    Nota.chkCP.Attiva = true;
    Nota.txtCP.Testo = CStr(sessione::CP);

    RicordaStampa(Nota);
    Nota.Pronta = true;
    Nota.RicalcoloNecessario = false;
    Nota.Fuoco = CampoNota::Nessuno;
    SetModificata(Nota, false);
}
