#include "feenote/modInterruttori.h"

#include "core/sessione.h"
#include "platform/base/regionale.h"

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

/// What a tax that is ticked begins with: general expenses have the percent of the note's decree where it
/// grants one.
QString Iniziale(const Parcella& Nota, Imposta Tassa)
{
    const bool DelDecreto = Tassa == Imposta::SpeseGen && Nota.Tariffa->SpeseGen > 0;
    return DelDecreto ? CStr(Nota.Tariffa->SpeseGen) : CStr(*DatiImposta(Tassa).Predefinito);
}

void Ricorda(const Parcella& Nota, Imposta Tassa, MemoriaStampa& Dove)
{
    const VoceImposta& Voce = DatiImposta(Tassa);
    Dove.*Voce.TickRicordato = (Nota.*Voce.Tick).Attiva;
    Dove.*Voce.TestoRicordato = (Nota.*Voce.Box).Testo;
}

/// What the user has ticked or typed. Taking the general expenses away is told by the state itself, and going
/// back to what a new note has is no will of its own.
void RicordaDellUtente(Parcella& Nota, Imposta Tassa, bool Voluta)
{
    Ricorda(Nota, Tassa, Nota.Memoria);
    if (Tassa == Imposta::SpeseGen)
        Nota.SpeseGenProprie = Voluta;
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
        Testo = Iniziale(Nota, Tassa);
    if (!Attiva)
        Testo.clear();

    const bool SenzaImposte = TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte;
    const bool Avviso = Attiva && SenzaImposte && Tassa != Imposta::SpeseGen && !Nota.AvvisoNotaGiudiziale;
    if (Avviso)
        Nota.AvvisoNotaGiudiziale = true;
    SetModificata(Nota, true);
    if (!SenzaImposte)
        RicordaDellUtente(Nota, Tassa, Attiva);
    return Avviso;
}

void CambiaPercento(Parcella& Nota, Imposta Tassa, const QString& Testo)
{
    (Nota.*DatiImposta(Tassa).Box).Testo = Testo;
    SetModificata(Nota, true);
    if (!TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte)
        RicordaDellUtente(Nota, Tassa, true);
}

void CambiaRegime(Parcella& Nota, bool Attivo)
{
    const bool SenzaImposte = TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte;
    Nota.chkRegSempl.Attiva = Attivo;
    for (const Imposta Tassa : EscluseDalRegime) {
        Abilita(Nota, Tassa, !Attivo && (Tassa == Imposta::IVA || !SenzaImposte));
        if (Attivo)
            Togli(Nota, Tassa);
        else if (!SenzaImposte)
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
    if (!TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte)
        Nota.Memoria.MinMax = Attivo;
}

void CambiaAcconti(Parcella& Nota, bool Attivo)
{
    Nota.chkAcconti.Attiva = Attivo;
    SetModificata(Nota, true);
    if (!TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte)
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
    if (!TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte)
        for (const Imposta Tassa : Imposte)
            Ricorda(Nota, Tassa, Propria);
    else if (Nota.chkRegSempl.Attiva)
        for (const Imposta Tassa : EscluseDalRegime)
            Ricorda(Nota, Tassa, Propria);
    if (!TipoDi(Nota.cmbTipoStampa).ImponeAcconti) {
        Propria.MinMax = Nota.chkMinMax.Attiva;
        Propria.Acconti = Nota.chkAcconti.Attiva;
    }
    return Propria;
}

void ScegliTipoStampa(Parcella& Nota, int Tipo)
{
    const TipoDocumento& Documento = TipoDi(Tipo);
    Nota.cmbTipoStampa = Tipo;
    Nota.chkMinMax.Attiva = !Documento.ImponeAcconti && Nota.Memoria.MinMax;
    Nota.chkAcconti.Attiva = Documento.ImponeAcconti || Nota.Memoria.Acconti;
    Nota.chkMinMax.Abilitata = !Documento.DisabilitaMinMax;
    Nota.chkAcconti.Abilitata = !Documento.DisabilitaAcconti;

    for (const Imposta Tassa : Imposte) {
        if (Documento.ForzaSenzaImposte)
            Togli(Nota, Tassa);
        else
            Ripristina(Nota, Tassa);
    }
    Abilita(Nota, Imposta::RA, !Documento.ForzaSenzaImposte);
    if (!Nota.chkRegSempl.Attiva)
        return;
    for (const Imposta Tassa : EscluseDalRegime) {
        Togli(Nota, Tassa);
        Abilita(Nota, Tassa, false);
    }
}
