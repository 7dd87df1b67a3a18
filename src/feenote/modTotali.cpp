#include "feenote/modTotali.h"

#include "core/sessione.h"
#include "feenote/modAcconti.h"
#include "feenote/modVariazione.h"

using namespace Qt::StringLiterals;

Somme CalcolaSomme(const Parcella& Nota)
{
    Somme Risultato;
    Risultato.TotOnorari = SommaColonna(Nota.xOnorari, OnoImporto);
    Risultato.TotMed = SommaColonna(Nota.xOnorari, OnoMedio);
    Risultato.TotMin = SommaColonna(Nota.xOnorari, OnoMin);
    Risultato.TotMax = SommaColonna(Nota.xOnorari, OnoMax);
    Risultato.TotSpeseImp = SommaColonna(Nota.xDiritti, DirImponibile);
    Risultato.TotSpeseEsenti = SommaColonna(Nota.xDiritti, DirEsente);
    return Risultato;
}

PannelliRiep TestiRiep(const Parcella& Nota)
{
    const Somme Proprie = CalcolaSomme(Nota);
    const NotaAssociata Altra = Nota.Multipla() ? Nota.Multi : NotaAssociata();
    const double Onorari = Altra.TotOnorari + Proprie.TotOnorari;
    const double SpeseImp = Altra.TotSpeseImp + Proprie.TotSpeseImp;
    const double Esenti = Altra.TotSpeseEsenti + Proprie.TotSpeseEsenti;
    const auto Testo = [](QStringView Etichetta, double Valore) {
        return Etichetta.toString() + Format(Valore, u"#,##0.00;-#,##0.00;0");
    };
    return {Testo(u"Onor.: ", Onorari), Testo(u"Sp.Imp: ", SpeseImp), Testo(u"Esenti: ", Esenti),
            Testo(u"Totale: ", SpeseImp + Onorari + Esenti)};
}

namespace {

void Accumula(SommeAcconti& Somme, const TabellaRighe& Righe)
{
    for (int Riga = 0; Riga < Righe.Righe(); ++Riga) {
        const QVariant& Valuta = Righe(Riga, AccValuta);
        Somme.Corrispettivi += AccontoInEuro(Righe(Riga, AccCorrispettivi), Valuta);
        Somme.SpeseImp += AccontoInEuro(Righe(Riga, AccSpeseImp), Valuta);
        Somme.SpeseEsenti += AccontoInEuro(Righe(Riga, AccSpeseEsenti), Valuta);
    }
}

Aliquota LeggiAliquota(const Spunta& Casella, const ::Casella& Percento, bool ContaAbilitata)
{
    Aliquota Risultato;
    Risultato.Attiva = Casella.Attiva;
    Risultato.Perc = Percento.Numero();
    Risultato.Testo = Percento.Testo.trimmed();
    Risultato.Vale = (ContaAbilitata ? Casella.Vale() : Casella.Attiva) && Risultato.Perc > 0;
    return Risultato;
}

/// A tax on its base, rounded as it arises; 0 when it does not apply.
double Applica(const Aliquota& Tassa, double Base)
{
    return Tassa.Vale ? Arrotonda2(Tassa.Perc * Base / 100) : 0.0;
}

}  // namespace

SommeAcconti CalcolaAcconti(const Parcella& Nota, int Tipo)
{
    SommeAcconti Risultato;
    if (Tipo == StampaNotaGiudiziale || (Tipo == StampaFatturaSintetica && !Nota.chkAcconti.Attiva))
        return Risultato;
    Accumula(Risultato, Nota.xAcconti);
    if (Nota.Multipla())
        Accumula(Risultato, Nota.Multi.xAcconti);
    return Risultato;
}

DatiCatena RaccogliCatena(const Parcella& Nota, int Tipo)
{
    const Somme Proprie = CalcolaSomme(Nota);
    DatiCatena Dati;
    Dati.Multipla = Nota.Multipla();
    Dati.Onorari = Proprie.TotOnorari + (Dati.Multipla ? Nota.Multi.TotOnorari : 0.0);
    Dati.SpeseImp = Proprie.TotSpeseImp + (Dati.Multipla ? Nota.Multi.TotSpeseImp : 0.0);
    Dati.SpeseEsenti = Proprie.TotSpeseEsenti + (Dati.Multipla ? Nota.Multi.TotSpeseEsenti : 0.0);
    Dati.Acconti = CalcolaAcconti(Nota, Tipo);
    // The subsidised regime disables VAT and withholding; the other two know only their tick.
    Dati.SpeseGen = LeggiAliquota(Nota.chkSpeseGen, Nota.txtSpeGen, false);
    Dati.CP = LeggiAliquota(Nota.chkCP, Nota.txtCP, false);
    Dati.IVA = LeggiAliquota(Nota.chkIva, Nota.txtIVA, true);
    Dati.RA = LeggiAliquota(Nota.chkRA, Nota.txtRA, true);
    Dati.Tipo = Tipo;
    Dati.RegimeAgevolato = Nota.chkRegSempl.Attiva;
    return Dati;
}

Catena CatenaFiscale(const DatiCatena& Dati)
{
    Catena Conti;
    Conti.Dati = Dati;
    Conti.SpeseGen = Applica(Dati.SpeseGen, Dati.Onorari);
    // The order of this sum is part of its meaning; the base itself is not rounded.
    Conti.Imponibile =
        Dati.Onorari - Dati.Acconti.Corrispettivi + Dati.SpeseImp - Dati.Acconti.SpeseImp + Conti.SpeseGen;
    Conti.CP = Applica(Dati.CP, Conti.Imponibile);
    Conti.IVA = Applica(Dati.IVA, Conti.Imponibile + Conti.CP);
    Conti.Totale =
        Arrotonda2(Conti.Imponibile + Conti.CP + Conti.IVA + Dati.SpeseEsenti - Dati.Acconti.SpeseEsenti);
    Conti.RA = Applica(Dati.RA, Conti.Imponibile);
    Conti.Netto = Arrotonda2(Conti.Totale - Conti.RA);
    return Conti;
}

Catena CatenaFiscale(const Parcella& Nota, int Tipo)
{
    return CatenaFiscale(RaccogliCatena(Nota, Tipo));
}

namespace {

/// A switch with its box and the two places where the memory keeps them.
struct Interruttore
{
    Spunta Parcella::*Tick;
    Casella Parcella::*Box;
    bool MemoriaStampa::*TickRicordato;
    QString MemoriaStampa::*TestoRicordato;
    float* Predefinito;
};

const Interruttore& Cerca(Imposta Quale)
{
    static const std::array<Interruttore, 4> Tabella{{
        {&Parcella::chkIva, &Parcella::txtIVA, &MemoriaStampa::Iva, &MemoriaStampa::TestoIva, &sessione::IVA},
        {&Parcella::chkRA, &Parcella::txtRA, &MemoriaStampa::RA, &MemoriaStampa::TestoRA, &sessione::RA},
        {&Parcella::chkCP, &Parcella::txtCP, &MemoriaStampa::CP, &MemoriaStampa::TestoCP, &sessione::CP},
        {&Parcella::chkSpeseGen, &Parcella::txtSpeGen, &MemoriaStampa::SpeseGen,
         &MemoriaStampa::TestoSpeseGen, &sessione::SpeseGen},
    }};
    return Tabella[size_t(Quale)];
}

constexpr std::array Imposte{Imposta::IVA, Imposta::RA, Imposta::CP, Imposta::SpeseGen};

void Ricorda(const Parcella& Nota, Imposta Quale, MemoriaStampa& Dove)
{
    const Interruttore& Voce = Cerca(Quale);
    Dove.*Voce.TickRicordato = (Nota.*Voce.Tick).Attiva;
    Dove.*Voce.TestoRicordato = (Nota.*Voce.Box).Testo;
}

void Togli(Parcella& Nota, Imposta Quale)
{
    const Interruttore& Voce = Cerca(Quale);
    (Nota.*Voce.Tick).Attiva = false;
    (Nota.*Voce.Box).Testo.clear();
}

void Ripristina(Parcella& Nota, Imposta Quale)
{
    const Interruttore& Voce = Cerca(Quale);
    (Nota.*Voce.Tick).Attiva = Nota.Memoria.*Voce.TickRicordato;
    (Nota.*Voce.Box).Testo = Nota.Memoria.*Voce.TestoRicordato;
}

void Abilita(Parcella& Nota, Imposta Quale, bool Si)
{
    const Interruttore& Voce = Cerca(Quale);
    (Nota.*Voce.Tick).Abilitata = Si;
    (Nota.*Voce.Box).Abilitata = Si;
}

/// What the regime excludes. The memory keeps what the note had, for when the regime is lifted.
constexpr std::array EscluseDalRegime{Imposta::IVA, Imposta::RA};

}  // namespace

bool ClicImposta(Parcella& Nota, Imposta Quale, bool Attiva)
{
    const Interruttore& Voce = Cerca(Quale);
    QString& Testo = (Nota.*Voce.Box).Testo;
    (Nota.*Voce.Tick).Attiva = Attiva;
    if (Attiva && Testo.isEmpty())
        Testo = CStr(*Voce.Predefinito);
    if (!Attiva)
        Testo.clear();

    const bool NotaGiudiziale = Nota.cmbTipoStampa == StampaNotaGiudiziale;
    const bool Avviso = Attiva && NotaGiudiziale && Quale != Imposta::SpeseGen && !Nota.AvvisoNotaGiudiziale;
    if (Avviso)
        Nota.AvvisoNotaGiudiziale = true;
    SetModificata(Nota, true);
    if (!NotaGiudiziale)
        Ricorda(Nota, Quale, Nota.Memoria);
    return Avviso;
}

void CambiaPercento(Parcella& Nota, Imposta Quale, const QString& Testo)
{
    (Nota.*Cerca(Quale).Box).Testo = Testo;
    SetModificata(Nota, true);
    if (Nota.cmbTipoStampa != StampaNotaGiudiziale)
        Ricorda(Nota, Quale, Nota.Memoria);
}

void CambiaRegime(Parcella& Nota, bool Attivo)
{
    const bool NotaGiudiziale = Nota.cmbTipoStampa == StampaNotaGiudiziale;
    Nota.chkRegSempl.Attiva = Attivo;
    for (const Imposta Quale : EscluseDalRegime) {
        Abilita(Nota, Quale, !Attivo && (Quale == Imposta::IVA || !NotaGiudiziale));
        if (Attivo)
            Togli(Nota, Quale);
        else if (!NotaGiudiziale)
            Ripristina(Nota, Quale);
    }
    // Deferred VAT is not remembered: lifting the regime only lets it be ticked again.
    Nota.chkIvaDiff.Abilitata = !Attivo;
    if (Attivo)
        Nota.chkIvaDiff.Attiva = false;
    SetModificata(Nota, true);
}

void CambiaMinMax(Parcella& Nota, bool Attivo)
{
    Nota.chkMinMax.Attiva = Attivo;
    SetModificata(Nota, true);
    if (Nota.cmbTipoStampa != StampaNotaGiudiziale)
        Nota.Memoria.MinMax = Attivo;
}

void CambiaAcconti(Parcella& Nota, bool Attivo)
{
    Nota.chkAcconti.Attiva = Attivo;
    SetModificata(Nota, true);
    if (Nota.cmbTipoStampa != StampaNotaGiudiziale)
        Nota.Memoria.Acconti = Attivo;
}

void RicordaStampa(Parcella& Nota)
{
    for (const Imposta Quale : Imposte)
        Ricorda(Nota, Quale, Nota.Memoria);
    Nota.Memoria.MinMax = Nota.chkMinMax.Attiva;
    Nota.Memoria.Acconti = Nota.chkAcconti.Attiva;
}

MemoriaStampa StampaPropria(const Parcella& Nota)
{
    MemoriaStampa Propria = Nota.Memoria;
    if (Nota.cmbTipoStampa != StampaNotaGiudiziale)
        for (const Imposta Quale : Imposte)
            Ricorda(Nota, Quale, Propria);
    else if (Nota.chkRegSempl.Attiva)
        for (const Imposta Quale : EscluseDalRegime)
            Ricorda(Nota, Quale, Propria);
    if (Nota.cmbTipoStampa != StampaFatturaSintetica) {
        Propria.MinMax = Nota.chkMinMax.Attiva;
        Propria.Acconti = Nota.chkAcconti.Attiva;
    }
    return Propria;
}

void ScegliTipoStampa(Parcella& Nota, int Tipo)
{
    const bool Sintetica = Tipo == StampaFatturaSintetica;
    const bool NotaGiudiziale = Tipo == StampaNotaGiudiziale;
    const bool Contrattuale = Tipo == StampaContratto || Tipo == StampaInformativa;
    Nota.cmbTipoStampa = Tipo;
    Nota.chkMinMax.Attiva = !Sintetica && Nota.Memoria.MinMax;
    Nota.chkAcconti.Attiva = Sintetica || Nota.Memoria.Acconti;
    Nota.chkMinMax.Abilitata = !Contrattuale && !Sintetica;
    Nota.chkAcconti.Abilitata = !Contrattuale && !NotaGiudiziale;

    for (const Imposta Quale : Imposte) {
        if (NotaGiudiziale)
            Togli(Nota, Quale);
        else
            Ripristina(Nota, Quale);
    }
    Abilita(Nota, Imposta::RA, !NotaGiudiziale);
    if (!Nota.chkRegSempl.Attiva)
        return;
    for (const Imposta Quale : EscluseDalRegime) {
        Togli(Nota, Quale);
        Abilita(Nota, Quale, false);
    }
}

QString Riep(int n)
{
    return u"lblRiep"_s + QString::number(n + 1);
}

QString FraseVariazione(const Parcella& Nota)
{
    if (Nota.AumRidVarP == 0)
        return {};
    QString Frase = u"Applicat"_s + (Nota.AumRidVarP >= 1 ? u"o aumento "_s : u"a riduzione del "_s) +
                    QString::number(std::abs(Nota.AumRidVarP)) + u"% "_s;
    const QString Didascalia = DidascaliaAumRid(Nota.AumRidIdx);
    if (Nota.AumRidIdx != AumRidLibera && !Didascalia.isEmpty())
        Frase += u"per "_s + Didascalia;
    return Frase;
}
