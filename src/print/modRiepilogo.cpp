#include "print/modRiepilogo.h"

#include "feenote/modVariazione.h"
#include "print/modCorpo.h"
#include "print/modLettere.h"
#include "print/modTestata.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString ImportoStampa(double Euro)
{
    return TestoImporto(Euro);
}

namespace {

using Righe = QList<RigaRiepilogo>;

void Voce(Righe& Tutte, const QString& Etichetta, double Euro)
{
    Tutte.append({RigaRiepilogo::Voce, Etichetta, ImportoStampa(Euro)});
}

/// A row that takes away: the sign is text before the formatted amount, so that 0 reads "-0" and a
/// negative amount bears two.
void VoceInMeno(Righe& Tutte, const QString& Etichetta, double Euro)
{
    Tutte.append({RigaRiepilogo::Voce, Etichetta, u'-' + ImportoStampa(Euro)});
}

void Filetto(Righe& Tutte)
{
    Tutte.append({RigaRiepilogo::Filetto, {}, u"___________"_s});
}

/// A payment shows while it is above 0.
void VoceAcconto(Righe& Tutte, const DatiCatena& Dati, const QString& Etichetta, double Euro)
{
    if (Euro > 0 && TipoDi(Dati.Tipo).Acconti != UsoAcconti::Mai)
        VoceInMeno(Tutte, Etichetta, Euro);
}

void RigheImponibile(Righe& Tutte, const Catena& Conti)
{
    const DatiCatena& Dati = Conti.Dati;
    Voce(Tutte, u"Onorari"_s, Dati.Onorari);
    VoceAcconto(Tutte, Dati, u"Acconti corrispettivi"_s, Dati.Acconti.AccontiCorrispettivi);
    Voce(Tutte, u"Spese imponibili"_s, Dati.SpeseImp);
    VoceAcconto(Tutte, Dati, u"Acconti spese imponibili"_s, Dati.Acconti.AccontiSpeseImp);
    if (Dati.SpeseGen.Vale)
        Voce(Tutte, ConPercento(u"Spese generali"_s, Dati.SpeseGen), Conti.SpeseGen);
    Filetto(Tutte);
    Voce(Tutte, {}, Conti.Imponibile);
}

void RigheTotale(Righe& Tutte, const Catena& Conti)
{
    const DatiCatena& Dati = Conti.Dati;
    if (Dati.CP.Vale) {
        Voce(Tutte, ConPercento(u"Cassa previdenza avvocati"_s, Dati.CP), Conti.CP);
        Filetto(Tutte);
        Voce(Tutte, {}, Conti.Imponibile + Conti.CP);
    }
    if (Dati.IVA.Vale)
        Voce(Tutte, ConPercento(u"I.V.A."_s, Dati.IVA), Conti.IVA);
    Voce(Tutte, u"Spese esenti art. 15 d.p.r. 633/72"_s, Dati.SpeseEsenti);
    VoceAcconto(Tutte, Dati, u"Acconti spese esenti"_s, Dati.Acconti.AccontiSpeseEsenti);
    Filetto(Tutte);
    Voce(Tutte, u"TOTALE EURO"_s, Conti.Totale);
}

void RigheNetto(Righe& Tutte, const Catena& Conti)
{
    if (!Conti.Dati.RA.Vale)
        return;
    VoceInMeno(Tutte, ConPercento(u"Ritenuta Acconto"_s, Conti.Dati.RA), Conti.RA);
    Filetto(Tutte);
    Voce(Tutte, u"Importo dovuto al netto della R.A."_s, Conti.Netto);
}

/// Of a document that forces the taxes out one says that they are due all the same.
bool TasseTaciute(const DatiCatena& Dati)
{
    const bool Nessuna = !Dati.SpeseGen.Attiva && !Dati.CP.Attiva && !Dati.IVA.Attiva && !Dati.RA.Attiva;
    return TipoDi(Dati.Tipo).ForzaSenzaImposte && Nessuna;
}

// ---- the table

constexpr int Etichette = 1;
constexpr int Importi = 2;

void ScriviSuDue(Superficie& vp, int Riga, const QString& Testo)
{
    vp.CellaTabella(AttrTabella::Unione, Riga, Etichette, 2);
    vp.CellaTabella(AttrTabella::Testo, Riga, Etichette, Testo);
}

void ScriviRiga(Superficie& vp, const RigaRiepilogo& Una)
{
    const int Riga = AggiungiRigaTab(vp);
    switch (Una.Tipo) {
    case RigaRiepilogo::Titolo:
    case RigaRiepilogo::Voce:
    case RigaRiepilogo::Filetto:
        vp.CellaTabella(AttrTabella::Testo, Riga, Etichette, Una.Etichetta);
        vp.CellaTabella(AttrTabella::Testo, Riga, Importi, Una.Importo);
        break;
    case RigaRiepilogo::Lettere:
        ScriviSuDue(vp, Riga, Una.Etichetta);
        vp.CellaTabella(AttrTabella::Allinea, Riga, Etichette, static_cast<int>(Allineamento::Destra));
        break;
    case RigaRiepilogo::Chiusura:
        ScriviSuDue(vp, Riga, Una.Etichetta);
        break;
    case RigaRiepilogo::Vuota:
        break;
    }
}

void ScriviTabella(Superficie& vp, const Righe& Tutte)
{
    vp.StartTable();
    vp.TableCell(AttrTabella::Colonne, QVariant(2));
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, Etichette, u"7cm"_s);
    vp.ColonnaTabella(AttrTabella::LarghezzaColonna, Importi, u"3cm"_s);
    vp.ColonnaTabella(AttrTabella::Allinea, Importi, static_cast<int>(Allineamento::Destra));
    for (const RigaRiepilogo& Una : Tutte)
        ScriviRiga(vp, Una);
    vp.TableBorder(0);
    vp.EndTable();
}

}  // namespace

QString ConPercento(const QString& Nome, const Aliquota& Tassa)
{
    return Nome + u' ' + Tassa.Testo + u'%';
}

QList<RigaRiepilogo> RigheRiepilogo(const Catena& Conti)
{
    Righe Tutte;
    // A multiple note numbers its two sections: the summary takes the third number.
    const QString Numero = Conti.Dati.Multipla ? u"3) "_s : QString();
    Tutte.append({RigaRiepilogo::Titolo, Numero + u"RIEPILOGO: "_s, {}});
    RigheImponibile(Tutte, Conti);
    RigheTotale(Tutte, Conti);
    RigheNetto(Tutte, Conti);
    Tutte.append({RigaRiepilogo::Lettere, u'(' + NumeroInLettere(Conti.Netto) + u')', {}});
    if (TasseTaciute(Conti.Dati)) {
        Tutte.append({RigaRiepilogo::Vuota, {}, {}});
        Tutte.append({RigaRiepilogo::Chiusura, u"Oltre a iva, c.p. avv., come per legge"_s, {}});
    }
    return Tutte;
}

void StampaRiepilogo(Superficie& vp, const Parcella& Nota, int Tipo)
{
    vp.FontSize(11);
    const QString Parti = FraseParti(Nota);
    const QString Variazione = FraseVariazione(Nota);
    for (const QString& Frase : {Parti, Variazione})
        if (!Frase.isEmpty())
            vp.Paragraph(Frase);
    if (!Parti.isEmpty() || !Variazione.isEmpty())
        RigaVuota(vp);
    ScriviTabella(vp, RigheRiepilogo(CatenaFiscale(Nota, Tipo)));
    if (Nota.chkRegSempl.Attiva && TipoDi(Tipo).EFattura)
        StampaRegimeAgevolato(vp);
}

void StampaRegimeAgevolato(Superficie& vp)
{
    RigaVuota(vp);
    vp.TextAlign(Allineamento::Sinistra);
    vp.Text(u"(operazione effettuata ai sensi dell'art. 27, commi 1 e 2, D.L. 6 luglio 2011 n. 98;\n"
            u"prestazione non soggetta a ritenuta d'acconto ai sensi del comma 5.2 del Provvedimento\n"
            u"Agenzia delle entrate del 22.12.2011 n. 185820)"_s);
}

QString RiepilogoInRiga(const Catena& Conti)
{
    QStringList Parti;
    for (const RigaRiepilogo& Riga : RigheRiepilogo(Conti))
        if (Riga.Tipo == RigaRiepilogo::Voce || Riga.Tipo == RigaRiepilogo::Chiusura)
            Parti += Riga.Etichetta + u'=' + Riga.Importo;
    Parti += NumeroInLettere(Conti.Netto);
    return Parti.join(u'|');
}
