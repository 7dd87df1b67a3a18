#include "feenote/modInterruttori.h"

#include "core/sessione.h"

const VoceImposta& DatiImposta(Imposta Tassa)
{
    static const std::array<VoceImposta, Imposte.size()> Tabella{{
        {&Parcella::chkIva, &Parcella::txtIVA, &MemoriaStampa::Iva, &MemoriaStampa::TestoIva, &sessione::IVA},
        {&Parcella::chkRA, &Parcella::txtRA, &MemoriaStampa::RA, &MemoriaStampa::TestoRA, &sessione::RA},
        {&Parcella::chkCP, &Parcella::txtCP, &MemoriaStampa::CP, &MemoriaStampa::TestoCP, &sessione::CP},
        {&Parcella::chkSpeseGen, &Parcella::txtSpeGen, &MemoriaStampa::SpeseGen,
         &MemoriaStampa::TestoSpeseGen, &sessione::SpeseGen},
    }};
    return Tabella[size_t(Tassa)];
}

namespace {

void Ricorda(const Parcella& Nota, Imposta Tassa, MemoriaStampa& Dove)
{
    const VoceImposta& Voce = DatiImposta(Tassa);
    Dove.*Voce.TickRicordato = (Nota.*Voce.Tick).Attiva;
    Dove.*Voce.TestoRicordato = (Nota.*Voce.Box).Testo;
}

void Togli(Parcella& Nota, Imposta Tassa)
{
    const VoceImposta& Voce = DatiImposta(Tassa);
    (Nota.*Voce.Tick).Attiva = false;
    (Nota.*Voce.Box).Testo.clear();
}

void Ripristina(Parcella& Nota, Imposta Tassa)
{
    const VoceImposta& Voce = DatiImposta(Tassa);
    (Nota.*Voce.Tick).Attiva = Nota.Memoria.*Voce.TickRicordato;
    (Nota.*Voce.Box).Testo = Nota.Memoria.*Voce.TestoRicordato;
}

void Abilita(Parcella& Nota, Imposta Tassa, bool Si)
{
    const VoceImposta& Voce = DatiImposta(Tassa);
    (Nota.*Voce.Tick).Abilitata = Si;
    (Nota.*Voce.Box).Abilitata = Si;
}

/// What the regime excludes. The memory keeps what the note had, for when the regime is lifted.
constexpr std::array EscluseDalRegime{Imposta::IVA, Imposta::RA};

}  // namespace

bool ClicImposta(Parcella& Nota, Imposta Tassa, bool Attiva)
{
    const VoceImposta& Voce = DatiImposta(Tassa);
    QString& Testo = (Nota.*Voce.Box).Testo;
    (Nota.*Voce.Tick).Attiva = Attiva;
    if (Attiva && Testo.isEmpty())
        Testo = CStr(*Voce.Predefinito);
    if (!Attiva)
        Testo.clear();

    const bool NotaGiudiziale = Nota.cmbTipoStampa == StampaNotaGiudiziale;
    const bool Avviso = Attiva && NotaGiudiziale && Tassa != Imposta::SpeseGen && !Nota.AvvisoNotaGiudiziale;
    if (Avviso)
        Nota.AvvisoNotaGiudiziale = true;
    SetModificata(Nota, true);
    if (!NotaGiudiziale)
        Ricorda(Nota, Tassa, Nota.Memoria);
    return Avviso;
}

void CambiaPercento(Parcella& Nota, Imposta Tassa, const QString& Testo)
{
    (Nota.*DatiImposta(Tassa).Box).Testo = Testo;
    SetModificata(Nota, true);
    if (Nota.cmbTipoStampa != StampaNotaGiudiziale)
        Ricorda(Nota, Tassa, Nota.Memoria);
}

void CambiaRegime(Parcella& Nota, bool Attivo)
{
    const bool NotaGiudiziale = Nota.cmbTipoStampa == StampaNotaGiudiziale;
    Nota.chkRegSempl.Attiva = Attivo;
    for (const Imposta Tassa : EscluseDalRegime) {
        Abilita(Nota, Tassa, !Attivo && (Tassa == Imposta::IVA || !NotaGiudiziale));
        if (Attivo)
            Togli(Nota, Tassa);
        else if (!NotaGiudiziale)
            Ripristina(Nota, Tassa);
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
    for (const Imposta Tassa : Imposte)
        Ricorda(Nota, Tassa, Nota.Memoria);
    Nota.Memoria.MinMax = Nota.chkMinMax.Attiva;
    Nota.Memoria.Acconti = Nota.chkAcconti.Attiva;
}

MemoriaStampa StampaPropria(const Parcella& Nota)
{
    MemoriaStampa Propria = Nota.Memoria;
    if (Nota.cmbTipoStampa != StampaNotaGiudiziale)
        for (const Imposta Tassa : Imposte)
            Ricorda(Nota, Tassa, Propria);
    else if (Nota.chkRegSempl.Attiva)
        for (const Imposta Tassa : EscluseDalRegime)
            Ricorda(Nota, Tassa, Propria);
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

    for (const Imposta Tassa : Imposte) {
        if (NotaGiudiziale)
            Togli(Nota, Tassa);
        else
            Ripristina(Nota, Tassa);
    }
    Abilita(Nota, Imposta::RA, !NotaGiudiziale);
    if (!Nota.chkRegSempl.Attiva)
        return;
    for (const Imposta Tassa : EscluseDalRegime) {
        Togli(Nota, Tassa);
        Abilita(Nota, Tassa, false);
    }
}
