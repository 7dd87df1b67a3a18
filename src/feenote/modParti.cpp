#include "feenote/modParti.h"

#include "addressbook/modClienti.h"
#include "core/modErrori.h"
#include "feenote/modBloccoCliente.h"
#include "platform/system/messaggi.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Where the record keeps a text of both tabs.
struct VoceParte
{
    Casella Parcella::*Scritta;
    Casella Parcella::*Stampata;
    int Parcella::*Legame;      ///< key of the linked row, null for what is never linked
    QString Parcella::*Legato;  ///< name of that row
    bool Parcella::*Svuotata;   ///< emptied for the print, null where the client's blocks say it
    int Massimo;
    CampoNota Campo;  ///< the box of the first tab
};

constexpr std::array Parti{
    VoceParte{&Parcella::txtCliente, &Parcella::txtDatiStaCli, &Parcella::IDCli, &Parcella::NomeCli, nullptr,
              2000, CampoNota::Cliente},
    VoceParte{&Parcella::txtControp, &Parcella::txtDatiStaControp, &Parcella::IDCon, &Parcella::NomeCon,
              &Parcella::ContropSvuotata, 2000, CampoNota::Controparte},
    VoceParte{&Parcella::txtOggetto, &Parcella::txtDatiStaOgg, nullptr, nullptr, &Parcella::OggSvuotato, 4000,
              CampoNota::Oggetto},
};

/// A word with which the address book is asked and answers.
struct VoceRubrica
{
    QStringView Parola;
    ParteNota Parte;
    bool DaStampa;  ///< asked for in the print data
};

constexpr std::array VociRubrica{
    VoceRubrica{u"cli", ParteNota::Cliente, false},
    VoceRubrica{u"con", ParteNota::Controparte, false},
    VoceRubrica{u"c_cli", ParteNota::Cliente, true},
    VoceRubrica{u"c_con", ParteNota::Controparte, true},
};

constexpr const VoceParte& Voce(ParteNota Parte)
{
    return Parti[size_t(Parte)];
}

void ScriviStampata(Parcella& Nota, ParteNota Parte, const QString& Testo)
{
    (Nota.*Voce(Parte).Stampata).Testo = Testo;
    if (Voce(Parte).Svuotata)
        Nota.*Voce(Parte).Svuotata = Testo.isEmpty();
}

void Dissocia(Parcella& Nota, ParteNota Parte)
{
    Nota.*Voce(Parte).Legame = 0;
    (Nota.*Voce(Parte).Legato).clear();
    MsgBox(Parte == ParteNota::Cliente ? u"Il cliente è stato dissociato dalla parcella!"_s
                                       : u"La controparte è stata dissociata dalla parcella!"_s,
           vbExclamation, TitoloAvvertenza.toString());
}

/// A key that no counter gives names no row: its text is the user's own.
void Lega(Parcella& Nota, ParteNota Parte, int Chiave, const QString& Nome)
{
    Nota.*Voce(Parte).Legame = std::max(Chiave, 0);
    Nota.*Voce(Parte).Legato = Chiave > 0 ? Nome : QString();
    CambiaParte(Nota, Parte, Nome);
}

/// The name that the linked row gives to a note: of a counterparty that of its notes, where its row has one.
QString NomeInArchivio(ParteNota Parte, int Chiave)
{
    if (Parte == ParteNota::Cliente)
        return CercaCliente(Chiave).value_or(QString());
    const QString InNota = CercaControparte(Chiave, u"Controp"_s).value_or(QString());
    return InNota.isEmpty() ? CercaControparte(Chiave, u"Nominativo"_s).value_or(QString()) : InNota;
}

/// The linked row has another name. That is no new choice: what the user has taken out of the print stays
/// out.
void SegueNome(Parcella& Nota, ParteNota Parte, int Chiave, const QString& Nome)
{
    const bool Svuotata = Voce(Parte).Svuotata && Nota.*Voce(Parte).Svuotata;
    QMap<FormaBlocco, QString> Vuoti = Nota.BlocchiScritti;
    Vuoti.removeIf([](const auto& Blocco) { return !Blocco.value().isEmpty(); });
    Lega(Nota, Parte, Chiave, Nome);
    if (Svuotata)
        ScriviStampata(Nota, Parte, {});
    if (Parte == ParteNota::Cliente)
        Nota.BlocchiScritti = Vuoti;
}

/// The client of the print alone; the form that he is worded in holds as the user's own would.
void StampaCliente(Parcella& Nota, int Chiave, const QString& Nome)
{
    const FormaBlocco Forma = FormaDelBlocco(Nota);
    const std::optional<DatiCliente> Cliente =
        Forma == FormaBlocco::Nessuna ? std::nullopt : LeggiCliente(Chiave);
    CambiaParteStampata(Nota, ParteNota::Cliente, Cliente ? BloccoCliente(*Cliente, Forma) : Nome);
    if (Cliente && Forma == FormaBlocco::Societa)
        Nota.Rappr = {Cliente->RapprLegale, {}, {}, {}};
}

/// The row of a linked client says, once, whether an agreement is with a company. Without a row, and once
/// the user has chosen, the choice stays.
void ProponiContrTipo(Parcella& Nota)
{
    const bool Chiesto = TipoDi(Nota.cmbTipoStampa).Pannello == PannelloStampa::Incarico;
    if (!Chiesto || Nota.IDCli <= 0 || Nota.ContrTipoDi == Nota.IDCli)
        return;
    const std::optional<DatiCliente> Cliente = LeggiCliente(Nota.IDCli);
    if (!Cliente)
        return;
    if (ESocieta(*Cliente))
        Nota.optContrTipo = 1;
    else if (Nota.ContrTipoDi != 0)  // the former client's
        Nota.optContrTipo = 0;
    Nota.ContrTipoDi = Nota.IDCli;
}

/// The note names a party whose name it has from nowhere.
bool SenzaNome(const Parcella& Nota, ParteNota Parte)
{
    return LegameParte(Nota, Parte) > 0 && ParteScritta(Nota, Parte).Testo.isEmpty();
}

/// The archive has not named a party that the note is linked to.
bool MancaUnNome(const Parcella& Nota)
{
    return std::ranges::any_of(std::array{ParteNota::Cliente, ParteNota::Controparte}, [&](ParteNota Parte) {
        return LegameParte(Nota, Parte) > 0 && NomeLegato(Nota, Parte).isEmpty();
    });
}

/// What prints comes from the archive: a name, the wording of the client, or who he is to an agreement. A
/// client whom the user has worded needs no name.
bool ServeArchivio(const Parcella& Nota)
{
    const FormaBlocco Forma = FormaDelBlocco(Nota);
    const bool Digitato = Nota.ArchivioNonLetto && !Nota.ArchivioNonLetto->DaComporre;
    const bool Scritto = Digitato || BloccoScritto(Nota, Forma).has_value();
    if ((SenzaNome(Nota, ParteNota::Cliente) && !Scritto) || SenzaNome(Nota, ParteNota::Controparte))
        return true;
    if (Nota.IDCli <= 0 || Forma == FormaBlocco::Nessuna)
        return false;
    const bool Incarico = TipoDi(Nota.cmbTipoStampa).Pannello == PannelloStampa::Incarico;
    return (Incarico && Nota.ContrTipoDi != Nota.IDCli) || !Scritto;
}

/// The archive was read in vain: what the parties were called then is what the user may have changed since.
void TieniGuasto(Parcella& Nota, const Errore& Guasto, bool DaComporre)
{
    Nota.ArchivioNonLetto = {Guasto.Numero, Guasto.Descrizione, DaComporre};
    if (!Nota.NomiAttesi && MancaUnNome(Nota))
        Nota.NomiAttesi = {Nota.txtCliente.Testo, Nota.txtControp.Testo, Nota.Percorso.isEmpty()};
}

/// The name comes later than it would have at the opening, and marks nothing. What the user has written
/// meanwhile stays, in the box and in the print.
void RiceviNome(Parcella& Nota, ParteNota Parte, const QString& Nome, const QString& Prima)
{
    const VoceParte& Dati = Voce(Parte);
    QString& Scritta = (Nota.*Dati.Scritta).Testo;
    Nota.*Dati.Legato = Nome.isEmpty() ? Scritta : Nome;
    if (Nome.isEmpty() || Scritta != Prima)
        return;
    if ((Nota.*Dati.Stampata).Testo == Scritta && !(Dati.Svuotata && Nota.*Dati.Svuotata))
        ScriviStampata(Nota, Parte, Nome);
    Scritta = Nome;
}

/// A note that is new prints the counterparty as its row is headed, one with a file as the row has it for
/// notes: what it was opened with is what the next opening gives. One that was new, and saved before it had
/// the name, has none in its file.
/// @throws ArchivioIlleggibile
std::optional<QString> RileggiControparte(const Parcella& Nota, int Chiave)
{
    const bool Nuova = Nota.Percorso.isEmpty();
    const auto Nome = CercaControparte(Chiave, Nuova ? u"Nominativo"_s : u"Controp"_s);
    const bool EraNuova = Nota.NomiAttesi && Nota.NomiAttesi->Nuova;
    return EraNuova && Nome && Nome->isEmpty() && Nota.txtControp.Testo.isEmpty()
               ? CercaControparte(Chiave, u"Nominativo"_s)
               : Nome;
}

/// The names that could not be read when the note was opened or made.
/// @param Dillo of a party that the archive lacks the user is told, as the opening would have told him: of a
/// counterparty where the note has a file
/// @return false where it lacks the client
/// @throws ArchivioIlleggibile
bool RileggiNomi(Parcella& Nota, bool Dillo)
{
    const int Cliente = LegameParte(Nota, ParteNota::Cliente);
    const int Controparte = LegameParte(Nota, ParteNota::Controparte);
    const auto NomeCliente = Cliente > 0 ? CercaCliente(Cliente) : std::nullopt;
    const auto NomeControparte = Controparte > 0 ? RileggiControparte(Nota, Controparte) : std::nullopt;
    const NomiTenuti Prima =
        Nota.NomiAttesi.value_or(NomiTenuti{Nota.txtCliente.Testo, Nota.txtControp.Testo, false});
    if (NomeCliente && Nota.NomeCli.isEmpty())
        RiceviNome(Nota, ParteNota::Cliente, *NomeCliente, Prima.Cliente);
    if (NomeControparte && Nota.NomeCon.isEmpty())
        RiceviNome(Nota, ParteNota::Controparte, *NomeControparte, Prima.Controparte);
    if (Dillo && Cliente > 0 && !NomeCliente)
        MsgErrore(u"Il cliente associato alla parcella non è stato trovato!"_s);
    if (Dillo && Controparte > 0 && !NomeControparte && !Nota.Percorso.isEmpty())
        MsgErrore(u"La controparte associata alla parcella non è stata trovata!"_s);
    return Cliente <= 0 || NomeCliente;
}

/// Words the client as the document in view wants him, or as the user has written him for it.
/// @throws ArchivioIlleggibile
void ComponiBlocco(Parcella& Nota)
{
    const FormaBlocco Forma = FormaDelBlocco(Nota);
    if (Forma == FormaBlocco::Nessuna)
        return;
    if (const std::optional<QString> Scritto = BloccoScritto(Nota, Forma))
        Nota.txtDatiStaCli.Testo = *Scritto;
    else
        GetDatiStaCli(Nota, Forma);
}

/// @param DaComporre the client's block too
/// @param Dillo of a party that the archive lacks the user is told, who was told of the archive before
/// @return false where a document waits for the archive, which cannot be read
bool ComponiSeSiLegge(Parcella& Nota, bool DaComporre, bool Dillo = true)
{
    try {
        const bool Aspettava = AspettaArchivio(Nota);
        // A client whom the user has worded for one document has no name for the next.
        const bool Rileggi = Aspettava || (SenzaNome(Nota, ParteNota::Cliente) && ServeArchivio(Nota));
        const bool Trovato = !Rileggi || RileggiNomi(Nota, Dillo && Aspettava);
        if (Trovato || BloccoScritto(Nota, FormaDelBlocco(Nota))) {
            ProponiContrTipo(Nota);
            if (DaComporre)
                ComponiBlocco(Nota);
        }
        Nota.ArchivioNonLetto.reset();
        Nota.NomiAttesi.reset();
        return true;
    } catch (const ArchivioIlleggibile& Guasto) {
        TieniGuasto(Nota, Guasto, DaComporre);
        NonAspetta(Nota);
        if (Nota.ArchivioNonLetto)
            return false;
        if (DaComporre)
            ComponiBlocco(Nota);  // in the user's own words
        return true;
    }
}

/// As far as it is due.
bool Riprova(Parcella& Nota, bool Dillo)
{
    return !AspettaArchivio(Nota) ||
           ComponiSeSiLegge(Nota, Nota.ArchivioNonLetto && Nota.ArchivioNonLetto->DaComporre, Dillo);
}

}  // namespace

int MassimoParte(ParteNota Parte)
{
    return Voce(Parte).Massimo;
}

int LegameParte(const Parcella& Nota, ParteNota Parte)
{
    return Voce(Parte).Legame ? std::max(Nota.*Voce(Parte).Legame, 0) : 0;
}

QString NomeLegato(const Parcella& Nota, ParteNota Parte)
{
    return Voce(Parte).Legato ? Nota.*Voce(Parte).Legato : QString();
}

const Casella& ParteScritta(const Parcella& Nota, ParteNota Parte)
{
    return Nota.*Voce(Parte).Scritta;
}

const Casella& ParteStampata(const Parcella& Nota, ParteNota Parte)
{
    return Nota.*Voce(Parte).Stampata;
}

void CambiaParte(Parcella& Nota, ParteNota Parte, const QString& Testo)
{
    (Nota.*Voce(Parte).Scritta).Testo = Testo;
    ScriviStampata(Nota, Parte, Testo);
    if (Parte == ParteNota::Cliente) {
        Nota.BlocchiScritti.clear();
        if (Nota.ArchivioNonLetto)
            Nota.ArchivioNonLetto->DaComporre = false;
    }
    SetModificata(Nota, true);
    if (Testo.isEmpty() && Voce(Parte).Legame && Nota.*Voce(Parte).Legame > 0)
        Dissocia(Nota, Parte);
    NonAspetta(Nota);
}

void ScollegaParte(Parcella& Nota, ParteNota Parte)
{
    if (LegameParte(Nota, Parte) == 0)
        return;
    Dissocia(Nota, Parte);
    if (Parte == ParteNota::Cliente)
        RicomponiBlocco(Nota);
    NonAspetta(Nota);
    SetModificata(Nota, true);
}

void CambiaParteStampata(Parcella& Nota, ParteNota Parte, const QString& Testo)
{
    ScriviStampata(Nota, Parte, Testo.left(Voce(Parte).Massimo));
    if (Parte == ParteNota::Cliente)
        ScriviBlocco(Nota, FormaDelBlocco(Nota), Nota.txtDatiStaCli.Testo);
    NonAspetta(Nota);
    SetModificata(Nota, true);
}

void LasciaParteStampata(Parcella& Nota, ParteNota Parte)
{
    const VoceParte& Dati = Voce(Parte);
    if (LegameParte(Nota, Parte) > 0)
        return;
    const QString& Testo = (Nota.*Dati.Stampata).Testo;
    if (Parte != ParteNota::Cliente)
        (Nota.*Dati.Scritta).Testo = Testo;
    else if (!Discorsiva(FormaDelBlocco(Nota)))
        Nota.txtCliente.Testo = NomeDelBlocco(Testo);
}

FormaBlocco FormaDelBlocco(const Parcella& Nota)
{
    const TipoDocumento& Tipo = TipoDi(Nota.cmbTipoStampa);
    return Nota.optContrTipo == 1 ? Tipo.Societa : Tipo.Persona;
}

void RicomponiBlocco(Parcella& Nota)
{
    if (!ComponiSeSiLegge(Nota, true))
        GestioneErrori(Errore(Nota.ArchivioNonLetto->Numero, Nota.ArchivioNonLetto->Descrizione));
}

void SegnaNonLetto(Parcella& Nota, const Errore& Guasto)
{
    TieniGuasto(Nota, Guasto, true);
    NonAspetta(Nota);
    if (!Nota.ArchivioNonLetto)
        ComponiBlocco(Nota);
}

bool AspettaArchivio(const Parcella& Nota)
{
    return Nota.ArchivioNonLetto || Nota.NomiAttesi;
}

void NonAspetta(Parcella& Nota)
{
    if (Nota.ArchivioNonLetto && !ServeArchivio(Nota))
        Nota.ArchivioNonLetto.reset();
    if (Nota.NomiAttesi && !MancaUnNome(Nota))
        Nota.NomiAttesi.reset();
}

bool RiprovaArchivio(Parcella& Nota)
{
    return Riprova(Nota, true);
}

bool RiprovaTenuta(Parcella& Tenuta)
{
    return Riprova(Tenuta, false);
}

void RiceviDaRubrica(Parcella& Nota, const QString& Parola, int Chiave, const QString& Nome)
{
    const auto Chiesta = std::ranges::find(VociRubrica, Parola, &VoceRubrica::Parola);
    if (Chiesta == VociRubrica.end())
        return;
    const bool Cliente = Chiesta->Parte == ParteNota::Cliente;
    if (!Chiesta->DaStampa || LegameParte(Nota, Chiesta->Parte) == 0) {
        Lega(Nota, Chiesta->Parte, Chiave, Nome);
        if (Cliente)
            RicomponiBlocco(Nota);
    } else if (Cliente) {
        Protetta([&] { StampaCliente(Nota, Chiave, Nome); });
    } else {
        CambiaParteStampata(Nota, Chiesta->Parte, Nome);
    }
    if (!Chiesta->DaStampa)
        Nota.Fuoco = Voce(Chiesta->Parte).Campo;
}

bool SegueArchivio(Parcella& Nota, ParteNota Parte, int Chiave)
{
    if (Chiave <= 0 || LegameParte(Nota, Parte) != Chiave)
        return false;
    const QString Nome = NomeInArchivio(Parte, Chiave);
    if (Nome.isEmpty())
        return false;
    const bool Nuovo = Nome != NomeLegato(Nota, Parte) && Nome != ParteScritta(Nota, Parte).Testo;
    const QString Prima = ParteStampata(Nota, Parte).Testo;
    if (Nuovo)
        SegueNome(Nota, Parte, Chiave, Nome);
    else
        Nota.*Voce(Parte).Legato = Nome;
    bool AltroRappresentante = false;
    if (Parte == ParteNota::Cliente) {
        AltroRappresentante = SegueRappresentante(Nota);
        RicomponiBlocco(Nota);
    }
    return Nuovo || AltroRappresentante || ParteStampata(Nota, Parte).Testo != Prima;
}

void CambiaContrTipo(Parcella& Nota, int Tipo)
{
    Nota.optContrTipo = Tipo;
    Nota.ContrTipoDi = Nota.IDCli;
    RicomponiBlocco(Nota);
    SetModificata(Nota, true);
}

void CambiaRappresentante(Parcella& Nota, QString Rappresentante::*Dato, const QString& Testo)
{
    Nota.Rappr.*Dato = Testo;
    SetModificata(Nota, true);
}
