#include "feenote/companion/modRichiesta.h"

#include "addressbook/modClienti.h"
#include "core/modErrori.h"
#include "feenote/modCambioTariffa.h"
#include "feenote/modNuovaParcella.h"
#include "feenote/modParametri.h"
#include "feenote/modParti.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

// ---- the request as it is sent

namespace {

/// The next field of a request, up to its "|", which is taken too; nothing when there is no "|".
std::optional<QString> PrendiCampo(QStringView& Resto)
{
    const qsizetype Fine = Resto.indexOf(u'|');
    if (Fine < 0)
        return std::nullopt;
    const QString Campo = Resto.first(Fine).toString();
    Resto = Resto.sliced(Fine + 1);
    return Campo;
}

int Intero16(double Valore)
{
    const double Intero = Round(Valore);
    if (Intero < std::numeric_limits<qint16>::min() || Intero > std::numeric_limits<qint16>::max())
        throw Errore(errori::Eccedenza);
    return static_cast<int>(Intero);
}

/// The reference of a matter, which begins the name of each of its notes: room is left for the rest of the
/// name. What is longer is refused at once, not by the first save.
QString Riferimento(const QString& Campo)
{
    constexpr qsizetype MassimoByte = 200;
    if (ByteDelNome(Campo) > MassimoByte)
        throw Errore(errori::TestoLungo);
    return Campo;
}

/// What each field becomes, in the order in which the fields are sent.
using Lettura = void (*)(Richiesta&, const QString&);
constexpr std::array<Lettura, 7> Letture{
    [](Richiesta& r, const QString& Campo) { r.ID = Riferimento(Campo); },
    [](Richiesta& r, const QString& Campo) { r.Categoria = CInt(Campo); },
    [](Richiesta& r, const QString& Campo) { r.Autorita = CInt(Campo); },
    [](Richiesta& r, const QString& Campo) { r.Valore = CDbl(Campo); },
    [](Richiesta& r, const QString& Campo) { r.IDCli = CLng(Campo); },
    [](Richiesta& r, const QString& Campo) { r.IDCon = CLng(Campo); },
    [](Richiesta& r, const QString& Campo) { r.Scelta = Intero16(Val(Campo)); },
};

bool RiempiRichiesta(Richiesta& Nuova, QStringView Resto)
{
    for (const Lettura Leggi : Letture) {
        const std::optional<QString> Campo = PrendiCampo(Resto);
        if (!Campo)
            return false;
        Leggi(Nuova, *Campo);
    }
    return true;
}

}  // namespace

bool LeggiRichiestaPV2(const QString& Testo)
{
    bool Completa = false;
    sessione::RichiestaPV2 = {};
    Protetta([&] { Completa = RiempiRichiesta(sessione::RichiestaPV2, Testo); });
    if (!Completa)
        sessione::RichiestaPV2 = {};
    return Completa;
}

// ---- the request as a note takes it

namespace {

/// From here on the request's value is the exact one in euro, below it the index of a bracket.
constexpr double ValoreEsattoRichiesta = 100.0;

/// The linked parties of the request: a client that is gone is told, a counterparty stays nameless.
/// @throws ArchivioIlleggibile
void NominaParti(Parcella& Nota)
{
    if (Nota.IDCli > 0) {
        const std::optional<QString> Nome = CercaCliente(Nota.IDCli);
        if (!Nome)
            MsgErrore(u"Il cliente associato alla parcella non è stato trovato!"_s);
        Nota.NomeCli = Nota.txtCliente.Testo = Nome.value_or(QString());
        Nota.txtDatiStaCli.Testo = Nota.txtCliente.Testo;
    }
    if (Nota.IDCon > 0) {
        Nota.NomeCon = Nota.txtControp.Testo =
            CercaControparte(Nota.IDCon, u"Nominativo"_s).value_or(QString());
        Nota.txtDatiStaControp.Testo = Nota.txtControp.Testo;
    }
}

void ApplicaParti(Parcella& Nota, const Richiesta& Dati)
{
    Nota.IDCli = Dati.IDCli;
    Nota.IDCon = Dati.IDCon;
    try {
        NominaParti(Nota);
    } catch (const ArchivioIlleggibile& Guasto) {
        GestioneErrori(Guasto);
        SegnaNonLetto(Nota, Guasto);
    }
}

/// An index that the list lacks; -1 asks for nothing. A list without entries has no wrong index: its category
/// offers no choice, or it could not be read and that was told.
bool FuoriElenco(int Indice, qsizetype Voci)
{
    return Voci > 0 && (Indice < NessunaVoce || Indice >= Voci);
}

/// The bracket of a request whose value is one, to the nearest whole number; below 0 none.
int IndiceScaglione(const Richiesta& Dati)
{
    return int(Round(std::max(Dati.Valore, double(NessunaVoce - 1))));
}

/// The request that a matter known by its reference alone makes: its notes bear the reference, the lists are
/// nobody's wish.
Richiesta SoloRiferimento(const QString& Rif)
{
    return {.ID = Rif, .Categoria = NessunaVoce, .Autorita = NessunaVoce, .Valore = NessunaVoce};
}

/// True when the request asks for an entry that its list lacks.
bool ChiedeOltreGliElenchi(const Parcella& Nota, const Richiesta& Dati)
{
    if (FuoriElenco(Dati.Categoria, VociCategoria().size()) ||
        FuoriElenco(Dati.Autorita, Nota.ListaAutorita.size()))
        return true;
    return Nota.CodCateg != Penale && Dati.Valore < ValoreEsattoRichiesta &&
           FuoriElenco(IndiceScaglione(Dati), Nota.ListaScaglioni.size());
}

}  // namespace

void ApplicaRichiesta(Parcella& Nota, const Richiesta& Dati)
{
    Nota.Pronta = false;  // the messages on the way must not compose half a note
    ApplicaParti(Nota, Dati);
    // The other program counts in the lists of the first decree, whatever the one of new notes is.
    const Decreto& Voluta = *std::exchange(Nota.Tariffa, Decreti.front());
    PortaSpeseGenerali(Nota, Voluta, *Nota.Tariffa);
    SelezionaInSilenzio(Nota, Dati.Categoria, Dati.Autorita, NessunaVoce);
    if (Dati.Valore >= ValoreEsattoRichiesta) {
        // As if the value had been typed: where the category has brackets, it finds its own.
        ImpostaValoreInSilenzio(Nota, Dati.Valore);
        if (Nota.CodCateg != Penale)
            SelezionaScaglioneDelValore(Nota);
    } else if (Nota.CodCateg != Penale && IndiceScaglione(Dati) >= 0) {
        SelezionaScaglioneInSilenzio(Nota, IndiceScaglione(Dati));
    }
    if (ChiedeOltreGliElenchi(Nota, Dati))
        GestioneErrori(
            Errore(errori::Indice));  // what is missing stays unselected, the rest of the request holds
    if (&Voluta != Nota.Tariffa)
        PortaSuTariffa(Nota, Voluta);
    Nota.NsRif = Dati.ID;
    Nota.Scelta = Dati.Scelta;

    Nota.Pronta = true;
    Nota.RicalcoloNecessario = false;
    Nota.Fuoco = CampoNota::Nessuno;
    SetModificata(Nota, false);
}

void AdottaRiferimento(Parcella& Nota)
{
    if (Nota.NsRif.isEmpty())
        return;
    Richiesta& InCorso = sessione::RichiestaPV2;
    if (InCorso.ID == Nota.NsRif)
        Nota.Scelta = InCorso.Scelta;
    else
        InCorso = SoloRiferimento(Nota.NsRif);
}
