#include "feenote/file/memorianota.h"

#include "core/sessione.h"
#include "feenote/file/memoriastato.h"
#include "feenote/modDatiStampa.h"
#include "feenote/modInterruttori.h"
#include "feenote/modVariazione.h"
#include "platform/base/errore.h"
#include "tariffs/modTariffe.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Si = u"1";
constexpr QStringView No = u"0";
constexpr QStringView VoceChiavi = u"ChiaviDisgiunte";
constexpr QStringView VoceAccontiMostrati = u"chkAcconti.Fattura";
constexpr QStringView VoceTariffa = u"Tariffa";
constexpr QStringView VoceAutorita = u"Tariffa.Autorita";
constexpr QStringView VoceScaglione = u"Tariffa.Scaglione";

/// A value of the memory: empty is not kept, and comes back as what a new note has.
struct VoceMemoria
{
    QStringView Nome;
    QString (*Scrivi)(const Parcella&);
    void (*Leggi)(Parcella&, const QString&);
};

QString Segno(bool Attivo)
{
    return Attivo ? Si.toString() : QString();
}

QString NumeroSe(int Numero)
{
    return Numero != 0 ? QString::number(Numero) : QString();
}

template <Spunta Parcella::*Tick>
constexpr VoceMemoria Interruttore(QStringView Nome)
{
    return {Nome, [](const Parcella& Nota) { return Segno((Nota.*Tick).Attiva); },
            [](Parcella& Nota, const QString& Valore) { (Nota.*Tick).Attiva = Valore == Si; }};
}

template <DatoStampa Quale>
constexpr VoceMemoria Dato(QStringView Nome)
{
    return {Nome, [](const Parcella& Nota) { return Nota.DatiPar(Quale); },
            [](Parcella& Nota, const QString& Valore) {
                Nota.txtDatiPar[Quale] = Valore.left(MassimoDatiPar(Quale));
            }};
}

template <int Parcella::*Numero>
constexpr VoceMemoria Intero(QStringView Nome)
{
    return {Nome, [](const Parcella& Nota) { return NumeroSe(Nota.*Numero); },
            [](Parcella& Nota, const QString& Valore) { Nota.*Numero = Valore.toInt(); }};
}

template <QString Rappresentante::*Membro>
constexpr VoceMemoria DelRappresentante(QStringView Nome)
{
    return {Nome, [](const Parcella& Nota) { return Nota.Rappr.*Membro; },
            [](Parcella& Nota, const QString& Valore) { Nota.Rappr.*Membro = Valore; }};
}

template <QString DatiFatturaXml::*Membro>
constexpr VoceMemoria DellaFattura(QStringView Nome)
{
    return {Nome, [](const Parcella& Nota) { return Nota.FatturaXml.*Membro; },
            [](Parcella& Nota, const QString& Valore) { Nota.FatturaXml.*Membro = Valore; }};
}

template <bool DatiFatturaXml::*Membro>
constexpr VoceMemoria SegnoFattura(QStringView Nome)
{
    return {Nome, [](const Parcella& Nota) { return Segno(Nota.FatturaXml.*Membro); },
            [](Parcella& Nota, const QString& Valore) { Nota.FatturaXml.*Membro = Valore == Si; }};
}

/// A party, or the subject, that its user has taken out of the print.
template <bool Parcella::*Svuotata, Casella Parcella::*Stampata, Casella Parcella::*Scritta>
constexpr VoceMemoria StampatoVuoto(QStringView Nome)
{
    return {Nome,
            [](const Parcella& Nota) {
                return Segno(Nota.*Svuotata && (Nota.*Stampata).Testo.isEmpty() &&
                             !(Nota.*Scritta).Testo.isEmpty());
            },
            [](Parcella& Nota, const QString& Valore) {
                if (Valore != Si)
                    return;
                (Nota.*Stampata).Testo.clear();
                Nota.*Svuotata = true;
            }};
}

/// A party, or the subject, that prints otherwise than it stands on the first tab.
template <Casella Parcella::*Stampata, Casella Parcella::*Scritta>
constexpr VoceMemoria Stampato(QStringView Nome)
{
    return {Nome,
            [](const Parcella& Nota) {
                const bool Diversa = (Nota.*Stampata).Testo != (Nota.*Scritta).Testo;
                return Diversa ? (Nota.*Stampata).Testo : QString();
            },
            [](Parcella& Nota, const QString& Valore) { (Nota.*Stampata).Testo = Valore; }};
}

/// What only a decree that names itself keeps; it is read before the rest, see TariffaDella.
template <QString (*Testo)(const Parcella&)>
constexpr VoceMemoria DellaTariffa(QStringView Nome)
{
    return {Nome, [](const Parcella& Nota) { return Nota.Tariffa->Dichiarato ? Testo(Nota) : QString(); },
            [](Parcella&, const QString&) {}};
}

QString SiglaTariffa(const Parcella& Nota)
{
    return Nota.Tariffa->Sigla.toString();
}

QString NumeroAutorita(const Parcella& Nota)
{
    return NumeroSe(Nota.cmbAutor == NessunaVoce ? Nota.AutoritaTenuta.Numero : Nota.IDAutSelezionata());
}

QString NumeroScaglione(const Parcella& Nota)
{
    const ScaglioneValore* Scelto = Nota.ScaglioneSelezionato();
    return NumeroSe(Scelto ? Scelto->NumSca : Nota.ScaglioneTenuto.Numero);
}

// ---- how the lines were varied ------------------------------------------------------------------

/// The option of the file, to be filled; null where it names none.
OpzioneAumRid* OpzioneSalvata(Parcella& Nota)
{
    const int Numero = VariazioneDelFile(Nota);
    if (!Nota.Tariffa->Dichiarato || Numero == AumRidLibera || Nota.AumRidVarP == 0)
        return nullptr;
    if (!Nota.OpzioneSalvata)
        Nota.OpzioneSalvata.emplace().Numero = Numero;
    return &*Nota.OpzioneSalvata;
}

/// The option that the note's lines are varied by; null where none varies them, and for a decree whose
/// options are the program's own.
const OpzioneAumRid* OpzioneDaTenere(const Parcella& Nota)
{
    const OpzioneAumRid* Opzione = OpzioneInForza(Nota);
    const bool Propria = Nota.Tariffa->Dichiarato && Opzione && Opzione->Numero != AumRidLibera;
    return Propria && Nota.AumRidVarP != 0 ? Opzione : nullptr;
}

/// A text of that option. Read, it is the one that the file's column names.
template <QString OpzioneAumRid::*Testo>
constexpr VoceMemoria DellOpzione(QStringView Nome)
{
    return {Nome,
            [](const Parcella& Nota) {
                const OpzioneAumRid* Opzione = OpzioneDaTenere(Nota);
                return Opzione ? Opzione->*Testo : QString();
            },
            [](Parcella& Nota, const QString& Valore) {
                constexpr qsizetype MassimoTesto = 255;
                if (OpzioneAumRid* Salvata = OpzioneSalvata(Nota))
                    Salvata->*Testo = Valore.left(MassimoTesto);
            }};
}

QString EsattoOpzione(const Parcella& Nota)
{
    constexpr int Cifre = 17;
    const OpzioneAumRid* Opzione = OpzioneDaTenere(Nota);
    return Opzione && Opzione->Esatto != 0 ? QString::number(Opzione->Esatto, 'g', Cifre) : QString();
}

void LeggiEsatto(Parcella& Nota, const QString& Valore)
{
    if (OpzioneAumRid* Salvata = OpzioneSalvata(Nota))
        Salvata->Esatto = Valore.toDouble();
}

QString PercentoParti(const Parcella& Nota)
{
    return Nota.Tariffa->Dichiarato ? NumeroSe(AumentoParti(Nota)) : QString();
}

/// The largest that a list of parties could come to.
constexpr int MassimoAumento = 999 * 999;

void LeggiPercentoParti(Parcella& Nota, const QString& Valore)
{
    const int Percento = Valore.toInt();
    if (Nota.Tariffa->Dichiarato && Nota.PartiAssistite > 1 && Percento > 0 && Percento <= MassimoAumento)
        Nota.PartiSalvate = {Percento, {}};
}

QString ArticoloParti(const Parcella& Nota)
{
    if (PercentoParti(Nota).isEmpty())
        return {};
    return Nota.PartiSalvate ? Nota.PartiSalvate->Articolo : Nota.ListaParti.first().Articolo;
}

void LeggiArticoloParti(Parcella& Nota, const QString& Valore)
{
    constexpr qsizetype MassimoArticolo = 40;
    if (Nota.PartiSalvate)
        Nota.PartiSalvate->Articolo = Valore.left(MassimoArticolo);
}

constexpr std::array Voci{
    DellaTariffa<SiglaTariffa>(VoceTariffa),
    DellaTariffa<NumeroAutorita>(VoceAutorita),
    DellaTariffa<NumeroScaglione>(VoceScaglione),
    VoceMemoria{
        u"PartiAssistite",
        [](const Parcella& Nota) { return NumeroSe(Nota.PartiAssistite - 1 ? Nota.PartiAssistite : 0); },
        [](Parcella& Nota, const QString& Valore) { CaricaParti(Nota, Valore.toInt()); }},
    // After the number of the parties, which takes them away.
    VoceMemoria{u"PartiAssistite.Aumento", PercentoParti, LeggiPercentoParti},
    VoceMemoria{u"PartiAssistite.Articolo", ArticoloParti, LeggiArticoloParti},
    DellOpzione<&OpzioneAumRid::Frase>(u"Variazione.Frase"),
    DellOpzione<&OpzioneAumRid::Didascalia>(u"Variazione.Didascalia"),
    DellOpzione<&OpzioneAumRid::Limiti>(u"Variazione.Limiti"),
    DellOpzione<&OpzioneAumRid::Voci>(u"Variazione.Voci"),
    VoceMemoria{u"Variazione.Esatto", EsattoOpzione, LeggiEsatto},
    VoceMemoria{u"chkSpeseGen.Propria",
                [](const Parcella& Nota) { return Segno(Nota.Tariffa->Dichiarato && Nota.SpeseGenProprie); },
                [](Parcella& Nota, const QString& Valore) { Nota.SpeseGenProprie = Valore == Si; }},
    Interruttore<&Parcella::chkIvaDiff>(u"chkIvaDiff"),
    Interruttore<&Parcella::chkFattAcc>(u"chkFattAcc"),
    VoceMemoria{u"chkIBAN", [](const Parcella& Nota) { return Segno(Nota.chkIBAN.Attiva); },
                [](Parcella& Nota, const QString& Valore) {
                    Nota.chkIBAN.Attiva = Valore == Si && !sessione::Iban.isEmpty();
                }},
    // The switch of the note itself, whatever the document in view forces.
    VoceMemoria{u"chkAcconti", [](const Parcella& Nota) { return Segno(StampaPropria(Nota).Acconti); },
                [](Parcella& Nota, const QString& Valore) { Nota.chkAcconti.Attiva = Valore == Si; }},
    // After deferred VAT, which the regime takes away.
    VoceMemoria{u"chkRegSempl", [](const Parcella& Nota) { return Segno(Nota.chkRegSempl.Attiva); },
                [](Parcella& Nota, const QString& Valore) {
                    if (Valore == Si)
                        CambiaRegime(Nota, true);
                }},
    VoceMemoria{u"UnaPagina", [](const Parcella& Nota) { return Segno(Nota.UnaPagina); },
                [](Parcella& Nota, const QString& Valore) { Nota.UnaPagina = Valore == Si; }},
    Dato<DatoNumero>(u"txtDatiPar.Numero"),
    Dato<DatoData>(u"txtDatiPar.Data"),
    Intero<&Parcella::optContrTipo>(u"optContrTipo"),
    Intero<&Parcella::ContrTipoDi>(u"optContrTipo.Cliente"),
    DelRappresentante<&Rappresentante::Nome>(u"Rappresentante.Nome"),
    DelRappresentante<&Rappresentante::DataNascita>(u"Rappresentante.DataNascita"),
    DelRappresentante<&Rappresentante::LuogoNascita>(u"Rappresentante.LuogoNascita"),
    DelRappresentante<&Rappresentante::Residenza>(u"Rappresentante.Residenza"),
    Intero<&Parcella::RapprDi>(u"Rappresentante.Cliente"),
    VoceMemoria{u"Rappresentante.Archivio", [](const Parcella& Nota) { return Nota.RapprLegato; },
                [](Parcella& Nota, const QString& Valore) { Nota.RapprLegato = Valore; }},
    Stampato<&Parcella::txtDatiStaControp, &Parcella::txtControp>(u"txtDatiStaControp"),
    Stampato<&Parcella::txtDatiStaOgg, &Parcella::txtOggetto>(u"txtDatiStaOgg"),
    StampatoVuoto<&Parcella::ContropSvuotata, &Parcella::txtDatiStaControp, &Parcella::txtControp>(
        u"txtDatiStaControp.Svuotata"),
    StampatoVuoto<&Parcella::OggSvuotato, &Parcella::txtDatiStaOgg, &Parcella::txtOggetto>(
        u"txtDatiStaOgg.Svuotato"),
    VoceMemoria{u"txtPathParcMult", [](const Parcella& Nota) { return Nota.txtPathParcMult; },
                [](Parcella& Nota, const QString& Valore) { Nota.txtPathParcMult = Valore; }},
    DellaFattura<&DatiFatturaXml::Tipo>(u"FatturaXml.Tipo"),
    DellaFattura<&DatiFatturaXml::Destinatario>(u"FatturaXml.Destinatario"),
    SegnoFattura<&DatiFatturaXml::Scissione>(u"FatturaXml.Scissione"),
    SegnoFattura<&DatiFatturaXml::BolloAddebitato>(u"FatturaXml.BolloAddebitato"),
    DellaFattura<&DatiFatturaXml::Natura>(u"FatturaXml.Natura"),
    DellaFattura<&DatiFatturaXml::Modalita>(u"FatturaXml.Modalita"),
    DellaFattura<&DatiFatturaXml::Scadenza>(u"FatturaXml.Scadenza"),
    DellaFattura<&DatiFatturaXml::CitataNumero>(u"FatturaXml.CitataNumero"),
    DellaFattura<&DatiFatturaXml::CitataData>(u"FatturaXml.CitataData"),
    DellaFattura<&DatiFatturaXml::ContrattoNumero>(u"FatturaXml.ContrattoNumero"),
    DellaFattura<&DatiFatturaXml::Cup>(u"FatturaXml.Cup"),
    DellaFattura<&DatiFatturaXml::Cig>(u"FatturaXml.Cig"),
    DellaFattura<&DatiFatturaXml::File>(u"FatturaXml.File"),
    DellaFattura<&DatiFatturaXml::Quando>(u"FatturaXml.Quando"),
    DellaFattura<&DatiFatturaXml::Progressivo>(u"FatturaXml.Progressivo"),
    DellaFattura<&DatiFatturaXml::DiFattura>(u"FatturaXml.DiFattura"),
    VoceMemoria{u"RigheDaRicalcolare", [](const Parcella& Nota) { return Segno(RicalcoloInSospeso(Nota)); },
                [](Parcella& Nota, const QString& Valore) { Nota.RigheDaRicalcolare = Valore == Si; }},
};

// ---- the client's blocks ------------------------------------------------------------------------

struct NomeForma
{
    FormaBlocco Forma;
    QStringView Nome;
};

constexpr std::array NomiForme{
    NomeForma{FormaBlocco::Testata, u"txtDatiStaCli.Testata"},
    NomeForma{FormaBlocco::Nome, u"txtDatiStaCli.Nome"},
    NomeForma{FormaBlocco::Persona, u"txtDatiStaCli.Persona"},
    NomeForma{FormaBlocco::Societa, u"txtDatiStaCli.Societa"},
};

void ScriviBlocchi(const Parcella& Nota, MemoriaFile& Memoria)
{
    for (const NomeForma& Voce : NomiForme) {
        if (const auto Scritto = Nota.BlocchiScritti.find(Voce.Forma); Scritto != Nota.BlocchiScritti.end())
            Memoria[Voce.Nome.toString()] = *Scritto;
    }
}

void LeggiBlocchi(Parcella& Nota, const MemoriaFile& Memoria)
{
    for (const NomeForma& Voce : NomiForme) {
        if (const auto Scritto = Memoria.find(Voce.Nome.toString()); Scritto != Memoria.end())
            Nota.BlocchiScritti[Voce.Forma] = *Scritto;
    }
}

// ---- what the print type overwrites -------------------------------------------------------------

/// A tax that the court costs note takes away, and that its user may have ticked there.
struct TassaGiudiziale
{
    QStringView Nome;
    Spunta Parcella::*Tick;
    Casella Parcella::*Box;
};

constexpr std::array TasseGiudiziali{
    TassaGiudiziale{u"txtIVA.Giudiziale", &Parcella::chkIva, &Parcella::txtIVA},
    TassaGiudiziale{u"txtRA.Giudiziale", &Parcella::chkRA, &Parcella::txtRA},
    TassaGiudiziale{u"txtCP.Giudiziale", &Parcella::chkCP, &Parcella::txtCP},
    TassaGiudiziale{u"txtSpeGen.Giudiziale", &Parcella::chkSpeseGen, &Parcella::txtSpeGen},
};

void ScriviDelTipo(const Parcella& Nota, MemoriaFile& Memoria)
{
    if (TipoDi(Nota.cmbTipoStampa).ImponeAcconti && !Nota.chkAcconti.Attiva)
        Memoria[VoceAccontiMostrati.toString()] = No.toString();
    if (!TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte)
        return;
    for (const TassaGiudiziale& Tassa : TasseGiudiziali) {
        if ((Nota.*Tassa.Tick).Attiva)
            Memoria[Tassa.Nome.toString()] = (Nota.*Tassa.Box).Testo;
    }
}

/// What a note keeps of its electronic invoice and of its state.
QStringList NomiDiFattura()
{
    QStringList Nomi = VociDiStato();
    for (const VoceMemoria& Voce : Voci)
        if (Voce.Nome.startsWith(u"FatturaXml."))
            Nomi += Voce.Nome.toString();
    return Nomi;
}

}  // namespace

void ScriviMemoria(const Database& File, const Parcella& Nota)
{
    MemoriaFile Memoria;
    for (const VoceMemoria& Voce : Voci) {
        if (const QString Valore = Voce.Scrivi(Nota); !Valore.isEmpty())
            Memoria[Voce.Nome.toString()] = Valore;
    }
    ScriviBlocchi(Nota, Memoria);
    ScriviDelTipo(Nota, Memoria);
    ScriviStato(Nota, Memoria);
    if (HaChiaviPrecedenti(*Nota.Tariffa))
        Memoria[VoceChiavi.toString()] = Si.toString();
    File.Annota(Memoria);
}

MemoriaFile AnnotaFattura(const Database& File, const Parcella& Nota)
{
    const QStringList Nomi = NomiDiFattura();
    MemoriaFile Memoria;
    for (const VoceMemoria& Voce : Voci) {
        const QString Nome = Voce.Nome.toString();
        if (!Nomi.contains(Nome))
            continue;
        if (const QString Valore = Voce.Scrivi(Nota); !Valore.isEmpty())
            Memoria[Nome] = Valore;
    }
    ScriviStato(Nota, Memoria);
    MemoriaFile Era = File.Annotazioni();
    Era.removeIf([&Nomi](const auto& Voce) { return !Nomi.contains(Voce.key()); });
    File.RitoccaAnnotazioni(Nomi, Memoria);
    return Era;
}

void RimettiFattura(const Database& File, const MemoriaFile& Era)
{
    File.RitoccaAnnotazioni(NomiDiFattura(), Era);
}

void AnnotaStato(const Database& File, const Parcella& Nota)
{
    MemoriaFile Memoria;
    ScriviStato(Nota, Memoria);
    File.RitoccaAnnotazioni(VociDiStato(), Memoria);
}

MemoriaFile LeggiMemoria(const Database& File)
{
    return File.Annotazioni();
}

bool HaVociIgnote(const MemoriaFile& Memoria)
{
    const auto Fra = [](const auto& Tabella, const QString& Nome) {
        return std::ranges::any_of(Tabella, [&Nome](const auto& Voce) { return Voce.Nome == Nome; });
    };
    const QStringList Nomi = Memoria.keys();
    return std::ranges::any_of(Nomi, [&Fra](const QString& Nome) {
        return Nome != VoceChiavi && Nome != VoceAccontiMostrati && !Fra(Voci, Nome) &&
               !Fra(NomiForme, Nome) && !Fra(TasseGiudiziali, Nome) && !EVoceDiStato(Nome);
    });
}

void ApplicaMemoria(Parcella& Nota, const MemoriaFile& Memoria)
{
    for (const VoceMemoria& Voce : Voci) {
        if (const auto Tenuta = Memoria.find(Voce.Nome.toString()); Tenuta != Memoria.end())
            Voce.Leggi(Nota, *Tenuta);
    }
    LeggiBlocchi(Nota, Memoria);
    LeggiStato(Nota, Memoria);
}

void ApplicaMemoriaDelTipo(Parcella& Nota, const MemoriaFile& Memoria)
{
    if (TipoDi(Nota.cmbTipoStampa).ImponeAcconti && Memoria.contains(VoceAccontiMostrati.toString()))
        Nota.chkAcconti.Attiva = false;
    if (!TipoDi(Nota.cmbTipoStampa).ForzaSenzaImposte)
        return;
    for (const TassaGiudiziale& Tassa : TasseGiudiziali) {
        const auto Testo = Memoria.find(Tassa.Nome.toString());
        if (Testo == Memoria.end() || !(Nota.*Tassa.Tick).Abilitata)
            continue;
        (Nota.*Tassa.Tick).Attiva = true;
        (Nota.*Tassa.Box).Testo = *Testo;
    }
}

const Decreto& TariffaDella(const MemoriaFile& Memoria)
{
    const auto Sigla = Memoria.find(VoceTariffa.toString());
    if (Sigla == Memoria.end())
        return *Decreti.front();
    if (const Decreto* Trovato = DecretoDi(*Sigla))
        return *Trovato;
    throw Errore(errori::Imprevisto, u"La parcella segue una tariffa che questa versione del programma non "
                                     u"conosce (%1): per aprirla occorre aggiornarlo"_s.arg(Sigla->left(20)));
}

SelezioniTenute SelezioniDella(const MemoriaFile& Memoria)
{
    return {Memoria.value(VoceAutorita.toString()).toInt(), Memoria.value(VoceScaglione.toString()).toInt()};
}

bool ChiaviDisgiunte(const MemoriaFile& Memoria)
{
    return Memoria.contains(VoceChiavi.toString());
}
