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

namespace {

/// General expenses as a new note has them.
void ImpostaSpeseGenerali(Parcella& Nota, const Decreto& Legge)
{
    Nota.chkSpeseGen.Attiva = Legge.SpeseGen > 0;
    Nota.txtSpeGen.Testo = Legge.SpeseGen > 0 ? CStr(Legge.SpeseGen) : QString();
}

}  // namespace

void PortaSpeseGenerali(Parcella& Nota, const Decreto& Prima, const Decreto& Nuova)
{
    Parcella Nata;
    ImpostaSpeseGenerali(Nata, Prima);
    const MemoriaStampa Sue = StampaPropria(Nota);
    if (Sue.SpeseGen != Nata.chkSpeseGen.Attiva || Sue.TestoSpeseGen != Nata.txtSpeGen.Testo)
        Nota.SpeseGenProprie = true;
    if (Nota.SpeseGenProprie)
        return;
    ImpostaSpeseGenerali(Nata, Nuova);
    Nota.Memoria.SpeseGen = Nata.chkSpeseGen.Attiva;
    Nota.Memoria.TestoSpeseGen = Nata.txtSpeGen.Testo;
    if (!TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte)
        ImpostaSpeseGenerali(Nota, Nuova);
}

void NuovaParcella(Parcella& Nota, const Decreto& Legge)
{
    AzzeraNota(Nota);
    Nota.Stato = StatoDiNuova();
    Nota.Tariffa = &Legge;
    SelezionaInSilenzio(Nota, NessunaVoce, NessunaVoce, NessunaVoce);

    Nota.chkIva.Attiva = true;
    Nota.txtIVA.Testo = CStr(sessione::IVA);
    Nota.chkCP.Attiva = true;
    Nota.txtCP.Testo = CStr(sessione::CP);
    ImpostaSpeseGenerali(Nota, Legge);

    RicordaStampa(Nota);
    Nota.Pronta = true;
    Nota.RicalcoloNecessario = false;
    Nota.Fuoco = CampoNota::Nessuno;
    SetModificata(Nota, false);
}

void NuovaParcella(Parcella& Nota)
{
    NuovaParcella(Nota, DecretoNuove());
}
