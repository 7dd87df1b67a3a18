#include "print/modContratto.h"

#include "core/sessione.h"
#include "print/modClausole.h"
#include "print/modTestata.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr double Corpo = 11;  // points

bool Societa(const Parcella& Nota)
{
    return Nota.optContrTipo == 1;
}

void PreparaPagina(Superficie& vp)
{
    vp.MarginLeft(u"1.4cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.MarginTop(u"2cm"_s);
    vp.MarginBottom(u"2cm"_s);
    vp.FontSize(Corpo);
    vp.TextAlign(Allineamento::Centro);
    vp.FontBold(true);
}

/// " in persona del legale rappresentante ..."; nothing for a person. What is not known leaves its place
/// between the words that stay.
QString InPersonaDi(const Parcella& Nota)
{
    if (!Societa(Nota))
        return {};
    const Rappresentante& Suo = Nota.Rappr;
    return u" in persona del legale rappresentante, Sig."_s + Suo.Nome + u" nato/a il "_s + Suo.DataNascita +
           u" a "_s + Suo.LuogoNascita + u" residente in "_s + Suo.Residenza;
}

// ---- the contract

void Titolo(Superficie& vp)
{
    vp.Text(u"Contratto di affidamento di incarico professionale per attività legale"_s);
    RigaVuota(vp);
    vp.SpaceBefore(SpazioVoce);
    vp.Text(
        u"stipulato ai sensi degli articoli 2233 c.c. e 13 della legge professionale n. 247 del 31 dicembre "
        u"2012"_s);
    RigaVuota(vp, 2);
    vp.FontBold(false);
    vp.TextAlign(Allineamento::Giustificato);
}

/// The text behind its words; nothing without a text.
void ScriviSe(Superficie& vp, QStringView Parole, const QString& Testo)
{
    if (!Testo.isEmpty())
        vp.Text(Parole.toString() + Testo);
}

/// One sentence, from the client to the headings of the agreement.
void Incarico(Superficie& vp, const Parcella& Nota)
{
    vp.Text(u"Il Cliente "_s + Nota.txtDatiStaCli.Testo + InPersonaDi(Nota) + u" conferisce all'avvocato "_s +
            sessione::StudioNome + u", con studio in "_s + sessione::StudioIndir + u' ' +
            sessione::StudioCitta);
    ScriviSe(vp, u" C.F. ", sessione::StudioCodFisc);
    ScriviSe(vp, u" P.I. ", sessione::StudioPIva);
    vp.Text(u" l'incarico di consulenza, assistenza e di difesa in giudizio"_s);
    ScriviSe(vp, u" avente ad oggetto ", Nota.txtDatiStaOgg.Testo.trimmed());
    ScriviSe(vp, u" contro ", Nota.txtDatiStaControp.Testo);
    // A penal matter has no value, whatever an earlier category has left in the box.
    ScriviSe(vp, u" di valore pari a ", Nota.CodCateg == Penale ? QString() : TestoValore(Nota));
    vp.Text(u" e che sarà eseguito in conformità dei seguenti "_s);
    vp.FontBold(true);
    vp.Text(u"accordi e condizioni"_s);
    RigaVuota(vp);
}

/// The words in bold and the plain text on one row; the room below it in points.
void Articolo(Superficie& vp, const QString& Numero, const QString& Testo, double Sotto = 0.0)
{
    vp.SpaceBefore(2 * SpazioVoce);
    vp.FontBold(true);
    vp.Text(Numero);
    vp.FontBold(false);
    vp.Text(Testo);
    vp.SpaceAfter(Sotto);
    RigaVuota(vp);
}

bool SenzaVoci(const Parcella& Nota)
{
    const bool Proprie = !Nota.xOnorari.Vuota() || !Nota.xDiritti.Vuota();
    const bool Associate =
        Nota.Multipla() && (!Nota.Multi.xOnorariMulti.Vuota() || !Nota.Multi.xDirittiMulti.Vuota());
    return !Proprie && !Associate;
}

void Compensi(Superficie& vp, StatoStampa& Stato, const Parcella& Nota)
{
    constexpr int RigheAMano = 4;
    Articolo(vp, u"Art. 1"_s,
             u"- I compensi  per l'incarico professionale in oggetto sono così convenuti, al netto di "
             u"i.v.a. e c.p. avv.:"_s,
             SpazioBlocco);
    if (SenzaVoci(Nota))
        RigaVuota(vp, RigheAMano);
    else
        StampaCorpo(vp, Stato, Nota, StampaContratto);
    vp.FontSize(Corpo);
    if (!Nota.chkSpeseGen.Attiva || Nota.txtSpeGen.Testo.isEmpty())
        return;
    vp.Text(
        u"E' inoltre dovuto all'avvocato il rimborso delle spese generali nella misura forfettaria del "_s +
        Nota.txtSpeGen.Testo + u"% degli onorari sopra indicati."_s);
    RigaVuota(vp);
}

/// A payment whose amount is written by hand.
struct Rata
{
    QStringView Lettera;
    QStringView Quando;
};

constexpr std::array Rate{
    Rata{u"a) euro ", u" in acconto al momento  della sottoscrizione del presente contratto;"},
    Rata{u"b) euro ", u" al momento della costituzione in giudizio;"},
    Rata{u"c) euro ", u" al momento della chiusura della fase istruttoria;"},
    Rata{u"d) euro ", u" a saldo, alla pubblicazione della decisione."},
};

void Pagamenti(Superficie& vp)
{
    constexpr int PostoImporto = 30;  // room to write the amount by hand
    Articolo(vp, u"Art. 2 "_s,
             u"- I compensi pattuiti verranno corrisposti dal cliente con le seguenti modalità:"_s);
    for (const Rata& Voce : Rate) {
        // The list stands with its heading: it is too short to be read on two pages.
        vp.KeepNext();
        vp.SpaceBefore(SpazioVoce);
        vp.Text(Voce.Lettera.toString() + QString(PostoImporto, u' ') + Voce.Quando.toString());
        RigaVuota(vp);
    }
}

}  // namespace

void ComponiContratto(Superficie& vp, StatoStampa& Stato, const Parcella& Nota)
{
    PreparaPagina(vp);
    Titolo(vp);
    Incarico(vp, Nota);
    vp.TextAlign(Allineamento::Centro);
    vp.SpaceBefore(SpazioBlocco);
    vp.Text(u"I - Determinazione degli onorari e delle spese"_s);
    vp.SpaceAfter(SpazioVoce);
    RigaVuota(vp);
    vp.TextAlign(Allineamento::Giustificato);
    Compensi(vp, Stato, Nota);
    Pagamenti(vp);
    StampaClausole(vp, Nota, StampaContratto);
}

void ComponiInformativa(Superficie& vp, StatoStampa& /*Stato*/, const Parcella& Nota)
{
    PreparaPagina(vp);
    vp.Text(u"DICHIARAZIONI DI RESA INFORMAZIONE"_s);
    vp.FontBold(false);
    vp.TextAlign(Allineamento::Giustificato);
    RigaVuota(vp, 2);

    const QString Dichiarante = Societa(Nota) ? u"Il Cliente "_s : u"Il sottoscritto  "_s;
    const QString Oggetto = Nota.txtDatiStaOgg.Testo;
    vp.Text(Dichiarante + Nota.txtDatiStaCli.Testo + InPersonaDi(Nota) +
            u" dichiara di essere stato informato dall'avv. "_s + sessione::StudioNome +
            u" in relazione alla controversia insorta contro "_s + Nota.txtDatiStaControp.Testo +
            (Oggetto.isEmpty() ? QString() : u" e avente a oggetto "_s + Oggetto) + u": "_s);
    RigaVuota(vp);
    StampaClausole(vp, Nota, StampaInformativa);
}
