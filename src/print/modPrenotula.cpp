#include "print/modPrenotula.h"

#include "print/modRiepilogo.h"
#include "print/modTestata.h"

using namespace Qt::StringLiterals;

namespace {

/// The row of number and date, of which either may be missing.
void TitoloPrenotula(Superficie& vp, const Parcella& Nota)
{
    const QString Numero = Nota.DatiPar(DatoNumero);
    const QString Data = Nota.DatiPar(DatoData);
    RigaVuota(vp);
    vp.Text(u"Preavviso di parcella "_s);
    if (!Numero.isEmpty())
        vp.Text(u"n. "_s + Numero);
    if (!Data.isEmpty())
        vp.Text(u" del "_s + Data);
}

}  // namespace

void ComponiPrenotula(Superficie& vp, StatoStampa& Stato, const Parcella& Nota)
{
    IntestazioneStudio(vp, Nota, StampaPrenotula);
    TitoloPrenotula(vp, Nota);
    const QString Controparte = RigaControparte(Nota);
    VoceIntestazione(vp, Controparte, Controparte);
    VoceIntestazione(vp, Nota.txtDatiStaOgg.Testo, u"Oggetto: "_s + Nota.txtDatiStaOgg.Testo);
    const QString Valore = RigaValore(Nota);
    VoceIntestazione(vp, Valore, Valore);
    RigaVuota(vp, 2);
    StampaCorpo(vp, Stato, Nota, StampaPrenotula);
    RigaVuota(vp);
    StampaRiepilogo(vp, Nota, StampaPrenotula);
    RigaVuota(vp, 2);
    vp.Text(u"N.B. : la presente parcella non costituisce fattura che sarà emessa quietanzata "
            u"alla data del pagamento"_s);
    StampaIban(vp, Nota);
    StampaFirma(vp);
}

void ComponiSoloContabile(Superficie& vp, StatoStampa& Stato, const Parcella& Nota)
{
    vp.TextAlign(Allineamento::Giustificato);
    vp.Text(Nota.DatiPar(DatoTestoSuperiore));
    RigaVuota(vp, 2);
    StampaCorpo(vp, Stato, Nota, StampaSoloContabile);
    RigaVuota(vp);
    StampaRiepilogo(vp, Nota, StampaSoloContabile);
    RigaVuota(vp);
    vp.TextAlign(Allineamento::Giustificato);
    vp.Text(Nota.DatiPar(DatoTestoInferiore));
    RigaVuota(vp);
}
