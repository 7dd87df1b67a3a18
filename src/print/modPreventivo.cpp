#include "print/modPreventivo.h"

#include "core/sessione.h"
#include "print/modRiepilogo.h"
#include "print/modTestata.h"

using namespace Qt::StringLiterals;

namespace {

/// A text and the blank line that ends its row; nothing where the text that decides is empty.
void RigaSe(Superficie& vp, const QString& Decide, const QString& Testo, double Sopra = SpazioVoce)
{
    if (Decide.isEmpty())
        return;
    vp.SpaceBefore(Sopra);
    vp.Text(Testo);
    RigaVuota(vp);
}

/// Number and date; without both the estimate begins with its sentence, right below the head.
QString NumeroEData(const Parcella& Nota)
{
    const QString Numero = Nota.DatiPar(DatoNumero);
    const QString Data = Nota.DatiPar(DatoData);
    return (Numero.isEmpty() ? QString() : u"Preventivo n. "_s + Numero) +
           (Data.isEmpty() ? QString() : u" Data "_s + Data);
}

void TestaPreventivo(Superficie& vp, const Parcella& Nota)
{
    const QString Numero = NumeroEData(Nota);
    RigaSe(vp, Numero, Numero, SpazioBlocco);
    vp.SpaceBefore(Numero.isEmpty() ? SpazioBlocco : SpazioVoce);
    vp.Text(
        u"Preventivo di massima, redatto ai sensi dell'art. 13, comma  5, della legge n. 247 del 31 dicembre "
        u"2012, per l'incarico professionale relativo a:"_s);
    RigaVuota(vp);
    RigaSe(vp, Nota.txtDatiStaOgg.Testo, u"Oggetto: "_s + Nota.txtDatiStaOgg.Testo);
    const QString Controparte = RigaControparte(Nota);
    RigaSe(vp, Controparte, Controparte);
    const QString Valore = RigaValore(Nota);
    vp.SpaceBefore(Valore.isEmpty() ? 0.0 : SpazioVoce);
    vp.Text(Valore);
    vp.SpaceAfter(SpazioBlocco);
}

/// Both sentences are one paragraph.
void Riserve(Superficie& vp)
{
    vp.TextAlign(Allineamento::Giustificato);
    vp.Text(u"N.B.: il presente preventivo è formulato in base alle informazioni fornite dal cliente e alle "
            u"conseguenti attività professionali che presumibilmente saranno necessarie per l'espletamento "
            u"dell'incarico e sarà soggetto a revisione nel caso che l'impegno professionale risulti "
            u"imprevedibilmente più gravoso. "_s);
    vp.Text(u"Negli importi del preventivo, se non specificatamente indicati, non sono compresi gli "
            u"oneri fiscali e previdenziali sui corrispettivi imponibili, i rimborsi per le spese, per "
            u"gli oneri e per i contributi a qualsiasi titolo dovuti."_s);
    vp.KeepTogether();
}

void Firme(Superficie& vp)
{
    constexpr int BianchiPrima = 2;  // a small indent: the row must hold the lawyer's whole name too
    constexpr int BianchiTra = 60;
    constexpr int BianchiFirma = 79;  // as wide as what stands before the lawyer's name
    // The client signs the reservations: date and signatures never leave them.
    vp.KeepNext();
    RigaVuota(vp);
    vp.SpaceBefore(SpazioBlocco);
    vp.Text(u"Data"_s);
    vp.KeepNext();
    RigaVuota(vp);
    vp.SpaceBefore(2 * SpazioBlocco);
    vp.Text(QString(BianchiPrima, u' ') + u"Il Cliente"_s + QString(BianchiTra, u' ') +
            (sessione::Firma.isEmpty() ? u"L'avvocato"_s : FirmaSuRighe(BianchiFirma)));
}

}  // namespace

void ComponiPreventivo(Superficie& vp, StatoStampa& Stato, const Parcella& Nota)
{
    IntestazioneStudio(vp, Nota, StampaPreventivo);
    TestaPreventivo(vp, Nota);
    RigaVuota(vp);
    StampaCorpo(vp, Stato, Nota, StampaPreventivo);
    RigaVuota(vp);
    StampaRiepilogo(vp, Nota, StampaPreventivo);
    RigaVuota(vp);
    Riserve(vp);
    Firme(vp);
}
