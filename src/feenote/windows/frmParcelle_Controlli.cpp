// From a remark of the list "Da controllare" to its field.
#include "core/aperture.h"
#include "feenote/einvoice/fattura.h"
#include "feenote/modControlliNota.h"
#include "feenote/modInterruttori.h"
#include "feenote/windows/SchedaSpese.h"
#include "feenote/windows/SchedaStampa.h"
#include "feenote/windows/frmParcelle.h"
#include "feenote/windows/ui_frmParcelle.h"
#include "platform/grid/griglia.h"
#include "platform/kit/campo.h"

#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString CasellaImposta(Imposta Tassa)
{
    switch (Tassa) {
    case Imposta::IVA:
        return u"txtIVA"_s;
    case Imposta::RA:
        return u"txtRA"_s;
    case Imposta::CP:
        return u"txtCP"_s;
    case Imposta::SpeseGen:
        return u"txtSpeGen"_s;
    }
    return {};
}

}  // namespace

void frmParcelle::VaiAllaCella(int SchedaDi, const QString& Lista, int Riga, int Colonna)
{
    VaiAllaScheda(SchedaDi);
    auto* Righe = findChild<Griglia*>(Lista);
    if (!Righe || Scheda() != SchedaDi)
        return;
    // Entering the page may have recalculated the lines, or taken some away.
    Righe->ImpostaRigaCorrente(std::clamp(Riga, 0, std::max(0, Righe->Righe() - 1)), Colonna);
    RidaiFuoco(Righe->Vista());
}

void frmParcelle::VaiAllaCasella(int SchedaDi, const QString& Casella)
{
    VaiAllaScheda(SchedaDi);
    auto* Campo = findChild<QWidget*>(Casella);
    if (Campo && Scheda() == SchedaDi)
        RidaiFuoco(Campo);
}

void frmParcelle::VaiAlRilievo(const Rilievo& Detto)
{
    if (DialogoAperto || !ConcludiCampo())
        return;
    switch (Detto.Luogo) {
    case LuogoRilievo::Cliente:
        return VaiAllaCasella(SchedaBase, u"txtCliente"_s);
    case LuogoRilievo::BloccoCliente:
        return VaiAllaCasella(SchedaDiStampa, u"txtDatiStaCli"_s);
    case LuogoRilievo::CodiceFiscale:
    case LuogoRilievo::PartitaIva:
        if (!Aperture.RubricaParcella)
            return VaiAllaCasella(SchedaBase, u"txtCliente"_s);
        return VaiAlCampo(Detto.Luogo == LuogoRilievo::PartitaIva ? CampoFattura::ClientePartitaIva
                                                                  : CampoFattura::ClienteCodiceFiscale);
    case LuogoRilievo::NumeroFattura:
        return VaiAllaCasella(SchedaDiStampa, u"txtDatiPar_11"_s);
    case LuogoRilievo::DataFattura:
        return VaiAllaCasella(SchedaDiStampa, u"txtDatiPar_12"_s);
    case LuogoRilievo::DataDocumento:
        return VaiAllaCasella(SchedaDiStampa, u"txtDatiPar_1"_s);
    case LuogoRilievo::Documento:
        return VaiAllaCasella(SchedaDiStampa, u"cmbTipoStampa"_s);
    case LuogoRilievo::FatturaXml:
        return Stampa->MostraFattura(true);
    case LuogoRilievo::Ricalcolo:
        return RidaiFuoco(ui->cmdRicalcola);
    case LuogoRilievo::Onorari:
        return VaiAllaCella(SchedaListaOnorari, u"tdbOnor"_s, Detto.Riga, Detto.Colonna);
    case LuogoRilievo::Spese:
        VaiAllaCella(SchedaListaSpese, u"tdbDir"_s, Detto.Riga, Detto.Colonna);
        return Spese->RigaInMano();  // the line may have been the current one before
    case LuogoRilievo::Acconti:
        return VaiAllaCella(SchedaImposte, u"tdbAcconti"_s, Detto.Riga, Detto.Colonna);
    case LuogoRilievo::Imposta:
        return VaiAllaCasella(SchedaImposte, CasellaImposta(Imposta(Detto.Colonna)));
    }
}
