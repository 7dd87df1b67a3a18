#include "print/modNotaSpese.h"

#include "print/modRiepilogo.h"
#include "print/modTestata.h"

using namespace Qt::StringLiterals;

namespace {

QString RigaAutorita(const Parcella& Nota)
{
    const QString Sezione = Nota.DatiPar(DatoDepSezione);
    return Nota.DatiPar(DatoDepAutorita).toUpper() +
           (Sezione.isEmpty() ? QString() : u" - SEZ. "_s + Sezione.toUpper());
}

QString RigaGiudice(const Parcella& Nota)
{
    const QString Giudice = Nota.DatiPar(DatoDepGiudice);
    const QString Ruolo = Nota.DatiPar(DatoDepRuolo);
    return (Giudice.isEmpty() ? QString() : u"Giudice: dott. "_s + Giudice) +
           (Ruolo.isEmpty() ? QString() : u"     Rgn. "_s + Ruolo);
}

void Parti(Superficie& vp, const Parcella& Nota)
{
    const QString Cliente = Nota.txtDatiStaCli.Testo;
    const QString Controparte = Nota.txtDatiStaControp.Testo;
    VoceIntestazione(vp, Cliente, u"per "_s + Cliente);
    VoceIntestazione(vp, Controparte, u"contro"_s);
    VoceIntestazione(vp, Controparte, Controparte);
}

void IntestazioneGiudice(Superficie& vp, const Parcella& Nota)
{
    vp.FontSize(12);
    vp.TextAlign(Allineamento::Centro);
    vp.Text(RigaAutorita(Nota));
    RigaVuota(vp);
    vp.Text(RigaGiudice(Nota));
    RigaVuota(vp);
    vp.SpaceBefore(SpazioBlocco);
    vp.Text(u"NOTA SPESE GIUDIZIALE"_s);
    vp.SpaceAfter(SpazioVoce);
    Parti(vp, Nota);
    const QString Valore = RigaValore(Nota);
    VoceIntestazione(vp, Valore, Valore);
}

}  // namespace

void ComponiNotaSpese(Superficie& vp, StatoStampa& Stato, const Parcella& Nota)
{
    IntestazioneGiudice(vp, Nota);
    RigaVuota(vp, 2);
    vp.TextAlign(Allineamento::Sinistra);
    StampaCorpo(vp, Stato, Nota, StampaNotaGiudiziale);
    RigaVuota(vp);
    StampaRiepilogo(vp, Nota, StampaNotaGiudiziale);
    StampaFirma(vp);
}
