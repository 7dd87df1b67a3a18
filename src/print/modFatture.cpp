#include "print/modFatture.h"

#include "feenote/modAcconti.h"
#include "feenote/modStorno.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"
#include "print/modCorpo.h"
#include "print/modLettere.h"
#include "print/modRiepilogo.h"
#include "print/modTestata.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

// ---- head and foot

/// The number is completed with the year in which the invoice is printed; without a number the room is left
/// to write it by hand.
QString RigaNumero(const Parcella& Nota)
{
    constexpr int PostoDelNumero = 15;
    const QString Numero = Nota.DatiPar(DatoNumFatt).trimmed();
    return u"Fattura N° "_s +
           (Numero.isEmpty() ? QString(PostoDelNumero, u' ')
                             : Numero + u'/' + QString::number(Oggi().year())) +
           u" del "_s + Nota.DatiPar(DatoDataFatt);
}

void TestaFattura(Superficie& vp, const Parcella& Nota, int Tipo)
{
    IntestazioneStudio(vp, Nota, Tipo);
    RigaVuota(vp);
    vp.TextAlign(Allineamento::Sinistra);
    vp.Text(RigaNumero(Nota));
    const QString Controparte = RigaControparte(Nota);
    VoceIntestazione(vp, Controparte, Controparte);
    const QString Oggetto = u"Oggetto: "_s + Nota.txtDatiStaOgg.Testo;
    VoceIntestazione(vp, Oggetto, Oggetto);  // an invoice names its subject, be it empty
}

void PiedeFattura(Superficie& vp, const Parcella& Nota)
{
    if (Nota.chkIvaDiff.Attiva) {
        RigaVuota(vp, 2);
        vp.Text(
            u"N.B. fattura con i.v.a. per cassa ai sensi dell'art. 32-bis del D.L. n. 83 del 22/6/2012."_s);
    }
    StampaIban(vp, Nota);
    StampaFirma(vp);
}

/// The decree of the fees, which no table of theirs names here. Of two notes with different ones it is said
/// whose fees are meant.
QString RigaTariffa(const Parcella& Nota)
{
    const bool Diverse = Nota.Multipla() && Nota.Multi.Tariffa != Nota.Tariffa;
    if (const QString Propria = FraseTariffa(*Nota.Tariffa, Nota.xOnorari); !Propria.isEmpty())
        return Propria + (Diverse ? u" (parcella principale)"_s : QString());
    if (!Diverse)
        return {};
    const QString Altra = FraseTariffa(*Nota.Multi.Tariffa, Nota.Multi.xOnorariMulti);
    return Altra.isEmpty() ? QString() : Altra + u" (parcella associata)"_s;
}

// ---- the two tables of the short invoice

constexpr int ColonneTabella = 3;

void ScriviRiga(Superficie& vp, const QString& Prima, const QString& Seconda = {}, const QString& Terza = {})
{
    const int Riga = AggiungiRigaTab(vp);
    vp.CellaTabella(AttrTabella::Testo, Riga, 1, Prima);
    vp.CellaTabella(AttrTabella::Testo, Riga, 2, Seconda);
    vp.CellaTabella(AttrTabella::Testo, Riga, 3, Terza);
}

/// A row whose first cell takes all columns; its number.
int ScriviRigaUnita(Superficie& vp, const QString& Testo)
{
    const int Riga = AggiungiRigaTab(vp);
    vp.CellaTabella(AttrTabella::Unione, Riga, 1, ColonneTabella);
    vp.CellaTabella(AttrTabella::Testo, Riga, 1, Testo);
    return Riga;
}

struct FormaColonna
{
    QStringView Larghezza;
    Allineamento Allinea;
};

void ApriTabella(Superficie& vp, const std::array<FormaColonna, ColonneTabella>& Forme)
{
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, QVariant(ColonneTabella));
    int Colonna = 0;
    for (const FormaColonna& Sua : Forme) {
        vp.ColonnaTabella(AttrTabella::LarghezzaColonna, ++Colonna, Sua.Larghezza.toString());
        vp.ColonnaTabella(AttrTabella::Allinea, Colonna, static_cast<int>(Sua.Allinea));
    }
}

QString InMeno(double Euro)
{
    return u'-' + ImportoStampa(Euro);
}

void ScriviAcconti(Superficie& vp, const TabellaRighe& Righe)
{
    for (int Riga = 0; Riga <= Righe.UpperBound(1); ++Riga) {
        const QVariant& Valuta = Righe(Riga, AccValuta);
        const double Imponibile = AccontoInEuro(Righe(Riga, AccCorrispettivi), Valuta) +
                                  AccontoInEuro(Righe(Riga, AccSpeseImp), Valuta);
        ScriviRiga(vp, u" - "_s + CStr(Righe(Riga, AccDescr)), InMeno(Imponibile),
                   InMeno(AccontoInEuro(Righe(Riga, AccSpeseEsenti), Valuta)));
    }
}

void ScriviAcconti(Superficie& vp, const Parcella& Nota)
{
    const AccontiDetratti Acconti = AccontiDelDocumento(Nota, StampaFatturaSintetica);
    if (Acconti.Propri.Vuota() && Acconti.Altri.Vuota())
        return;
    ScriviRiga(vp, u"Acconti: "_s);
    ScriviAcconti(vp, Acconti.Propri);
    ScriviAcconti(vp, Acconti.Altri);
}

double Esenti(const Catena& Conti)
{
    return Conti.Dati.SpeseEsenti - Conti.Dati.Acconti.AccontiSpeseEsenti;
}

void TabellaPrestazioni(Superficie& vp, const Parcella& Nota, const Catena& Conti)
{
    using enum Allineamento;
    ApriTabella(vp, {{{u"9cm", Sinistra}, {u"2.4cm", Destra}, {u"2.4cm", Destra}}});
    ScriviRiga(vp, u"Descrizione prestazioni e rimborsi"_s, u"Importi imponibili"_s, u"Importi esenti"_s);
    for (const int Colonna : {2, 3})
        vp.CellaTabella(AttrTabella::Allinea, 1, Colonna, static_cast<int>(Centro));
    ScriviRiga(vp, u"Onorari"_s, ImportoStampa(Conti.Dati.Onorari));
    ScriviRiga(vp, u"Rimborso spese imponibili"_s, ImportoStampa(Conti.Dati.SpeseImp));
    ScriviRiga(vp, u"Rimborso spese esenti"_s, {}, ImportoStampa(Conti.Dati.SpeseEsenti));
    if (Conti.Dati.SpeseGen.Vale)
        ScriviRiga(vp, ConPercento(u"Spese generali"_s, Conti.Dati.SpeseGen), ImportoStampa(Conti.SpeseGen));
    ScriviAcconti(vp, Nota);
    AggiungiRigaTab(vp);
    ScriviRiga(vp, u"Totali:"_s, ImportoStampa(Conti.Imponibile), ImportoStampa(Esenti(Conti)));
    ChiudiTabella(vp);
}

void RigheTotale(Superficie& vp, const Catena& Conti)
{
    const DatiCatena& Dati = Conti.Dati;
    ScriviRiga(vp, {}, u"Importi imponibili"_s, ImportoStampa(Conti.Imponibile));
    if (Dati.CP.Vale)
        ScriviRiga(vp, {}, ConPercento(u"Cassa previdenza avvocati"_s, Dati.CP), ImportoStampa(Conti.CP));
    if (Dati.IVA.Vale)
        ScriviRiga(vp, {}, ConPercento(u"I.V.A."_s, Dati.IVA), ImportoStampa(Conti.IVA));
    // A difference of cents that were paid in full is no amount, whatever its binary rest.
    if (Arrotonda2(Esenti(Conti)) != 0)
        ScriviRiga(vp, {}, u"Importi esenti, art. 15 d.p.r. 633/72"_s, ImportoStampa(Esenti(Conti)));
    ScriviRiga(vp, {}, {}, u"_________"_s);
    ScriviRiga(vp, {}, u"Totale fattura: euro"_s, ImportoStampa(Conti.Totale));
}

void RigheNetto(Superficie& vp, const Catena& Conti)
{
    if (!Conti.Dati.RA.Vale)
        return;
    ScriviRiga(vp, {}, ConPercento(u"Ritenuta d'acconto"_s, Conti.Dati.RA), InMeno(Conti.RA));
    ScriviRiga(vp, {}, {}, u"_________"_s);
    ScriviRiga(vp, {}, u"Totale dovuto al netto della R/A: euro"_s, ImportoStampa(Conti.Netto));
}

void TabellaRiepilogo(Superficie& vp, const Catena& Conti)
{
    using enum Allineamento;
    constexpr int BianchiTitolo = 20;  // as wide as the first column: the title stands over the labels
    ApriTabella(vp, {{{u"2cm", Sinistra}, {u"8cm", Sinistra}, {u"2.4cm", Destra}}});
    ScriviRigaUnita(vp, QString(BianchiTitolo, u' ') + u"RIEPILOGO"_s);
    RigheTotale(vp, Conti);
    RigheNetto(vp, Conti);
    const int Lettere = ScriviRigaUnita(vp, u'(' + NumeroInLettere(Conti.Netto) + u')');
    vp.CellaTabella(AttrTabella::Allinea, Lettere, 1, static_cast<int>(Destra));
    ChiudiTabella(vp);
}

}  // namespace

void ComponiFatturaSintetica(Superficie& vp, StatoStampa& /*Stato*/, const Parcella& Nota)
{
    TestaFattura(vp, Nota, StampaFatturaSintetica);
    // The sections have no titles here: the other note's subject stands in the head, the value nowhere.
    if (Nota.Multipla())
        VoceIntestazione(vp, Nota.Multi.OggettoMulti, u"   "_s + Nota.Multi.OggettoMulti);
    const QString Tariffa = RigaTariffa(Nota);
    VoceIntestazione(vp, Tariffa, Tariffa);
    RigaVuota(vp, 2);
    StampaSintetica(vp, Nota);
    PiedeFattura(vp, Nota);
}

void ComponiFatturaAnalitica(Superficie& vp, StatoStampa& Stato, const Parcella& Nota)
{
    TestaFattura(vp, Nota, StampaFatturaAnalitica);
    const QString Valore = RigaValore(Nota);
    VoceIntestazione(vp, Valore, Valore);
    RigaVuota(vp, 2);
    StampaCorpo(vp, Stato, Nota, StampaFatturaAnalitica);
    RigaVuota(vp);
    StampaRiepilogo(vp, Nota, StampaFatturaAnalitica);
    PiedeFattura(vp, Nota);
}

void StampaSintetica(Superficie& vp, const Parcella& Nota)
{
    const Catena Conti = CatenaFiscale(Nota, StampaFatturaSintetica);
    TabellaPrestazioni(vp, Nota, Conti);
    RigaVuota(vp);
    TabellaRiepilogo(vp, Conti);
    if (Nota.chkRegSempl.Attiva)
        StampaRegimeAgevolato(vp);
}
