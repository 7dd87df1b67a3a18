// From a remark of the list "Da controllare" to its field.
#include "core/aperture.h"
#include "feenote/einvoice/fattura.h"
#include "feenote/modControlliNota.h"
#include "feenote/modInterruttori.h"
#include "feenote/windows/SchedaAcconti.h"
#include "feenote/windows/SchedaDatiBase.h"
#include "feenote/windows/SchedaOnorari.h"
#include "feenote/windows/SchedaSpese.h"
#include "feenote/windows/SchedaStampa.h"
#include "feenote/windows/casellenota.h"
#include "feenote/windows/frmParcelle.h"
#include "feenote/windows/ui_frmParcelle.h"
#include "platform/grid/griglia.h"
#include "platform/kit/campo.h"

#include <QTableView>

#include <algorithm>
#include <array>
#include <utility>

namespace {

CasellaNota CasellaImposta(Imposta Tassa)
{
    switch (Tassa) {
    case Imposta::IVA:
        return CasellaNota::PercIva;
    case Imposta::RA:
        return CasellaNota::PercRA;
    case Imposta::CP:
        return CasellaNota::PercCP;
    case Imposta::SpeseGen:
        break;
    }
    return CasellaNota::PercSpeseGen;
}

}  // namespace

QWidget* frmParcelle::ScopriCasella(CasellaNota Quale)
{
    const std::array Pagine{
        std::pair(SchedaBase, Base->Casella(Quale)),
        std::pair(SchedaListaOnorari, Onorari->Casella(Quale)),
        std::pair(SchedaListaSpese, Spese->Casella(Quale)),
        std::pair(SchedaImposte, Acconti->Casella(Quale)),
        std::pair(SchedaDiStampa, Stampa->Casella(Quale)),
    };
    for (const auto& [Pagina, Campo] : Pagine)
        if (Campo) {
            VaiAllaScheda(Pagina);
            return Scheda() == Pagina ? Campo : nullptr;
        }
    return nullptr;
}

void frmParcelle::VaiAllaCella(CasellaNota Lista, int Riga, int Colonna)
{
    auto* Righe = qobject_cast<Griglia*>(ScopriCasella(Lista));
    if (!Righe)
        return;
    // Entering the page may have recalculated the lines, or taken some away.
    Righe->ImpostaRigaCorrente(std::clamp(Riga, 0, std::max(0, Righe->Righe() - 1)), Colonna);
    RidaiFuoco(Righe->Vista());
}

void frmParcelle::VaiAllaCasella(CasellaNota Quale)
{
    if (QWidget* Campo = ScopriCasella(Quale))
        RidaiFuoco(Campo);
}

void frmParcelle::VaiAlRilievo(const Rilievo& Detto)
{
    if (DialogoAperto || !ConcludiCampo())
        return;
    switch (Detto.Luogo) {
    case LuogoRilievo::Cliente:
        return VaiAllaCasella(CasellaNota::Cliente);
    case LuogoRilievo::Controparte:
        return VaiAllaCasella(CasellaNota::Controparte);
    case LuogoRilievo::BloccoCliente:
        return VaiAllaCasella(CasellaNota::BloccoCliente);
    case LuogoRilievo::BloccoControparte:
        return VaiAllaCasella(CasellaNota::BloccoControparte);
    case LuogoRilievo::CodiceFiscale:
    case LuogoRilievo::PartitaIva:
        if (!Aperture.RubricaParcella)
            return VaiAllaCasella(CasellaNota::Cliente);
        return VaiAlCampo(Detto.Luogo == LuogoRilievo::PartitaIva ? CampoFattura::ClientePartitaIva
                                                                  : CampoFattura::ClienteCodiceFiscale);
    case LuogoRilievo::NumeroFattura:
        return VaiAllaCasella(CasellaNota::NumeroFattura);
    case LuogoRilievo::DataFattura:
        return VaiAllaCasella(CasellaNota::DataFattura);
    case LuogoRilievo::DataDocumento:
        return VaiAllaCasella(CasellaNota::DataDocumento);
    case LuogoRilievo::Documento:
        return VaiAllaCasella(CasellaNota::TipoStampa);
    case LuogoRilievo::FatturaXml:
        return Stampa->MostraFattura(true);
    case LuogoRilievo::Ricalcolo:
        return RidaiFuoco(ui->cmdRicalcola);
    case LuogoRilievo::Onorari:
        return VaiAllaCella(CasellaNota::Onorari, Detto.Riga, Detto.Colonna);
    case LuogoRilievo::Spese:
        VaiAllaCella(CasellaNota::Spese, Detto.Riga, Detto.Colonna);
        return Spese->RigaInMano();  // the line may have been the current one before
    case LuogoRilievo::Acconti:
        return VaiAllaCella(CasellaNota::Acconti, Detto.Riga, Detto.Colonna);
    case LuogoRilievo::Imposta:
        return VaiAllaCasella(CasellaImposta(Imposta(Detto.Colonna)));
    }
}
