#include "feenote/parcella.h"

#include "addressbook/modClienti.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "feenote/modParametri.h"
#include "feenote/modTotali.h"
#include "feenote/modVariazione.h"
#include "platform/system/messaggi.h"

#include <algorithm>

using namespace Qt::StringLiterals;

int Parcella::IDAutSelezionata() const
{
    return cmbAutor >= 0 && cmbAutor < ListaAutorita.size() ? ListaAutorita[cmbAutor].IDAut : 0;
}

const ScaglioneValore* Parcella::ScaglioneSelezionato() const
{
    return cmbValore >= 0 && cmbValore < ListaScaglioni.size() ? &ListaScaglioni[cmbValore] : nullptr;
}

QStringList VociCategoria()
{
    return {u"Civile o Amministrativa"_s, u"Penale"_s, u"Stragiudiziale"_s};
}

QStringList VociTipoStampa()
{
    return {u"Prenotula"_s,
            u"Preventivo"_s,
            u"Fattura sintetica"_s,
            u"Fattura analitica"_s,
            u"Nota spese giudiziale"_s,
            u"Contratto cliente"_s,
            u"Resa informativa"_s,
            u"Solo parte contabile!"_s};
}

QString TestoCategoria(const Parcella& Nota)
{
    return VociCategoria().value(Nota.cmbCateg);
}

QString TestoAutorita(const Parcella& Nota)
{
    return Nota.IDAutSelezionata() == 0 ? QString() : Nota.ListaAutorita[Nota.cmbAutor].DesAut;
}

QString TestoScaglione(const Parcella& Nota)
{
    const ScaglioneValore* Scelto = Nota.ScaglioneSelezionato();
    return Scelto ? Scelto->DesVal : QString();
}

QString TestoValore(const Parcella& Nota)
{
    const double Valore = Nota.txtImporto.Numero();
    return Valore > 0 ? Format(Valore, u"#,##0.00") + u" €"_s : TestoScaglione(Nota).toLower();
}

namespace {

/// From here on the request's value is the exact one in euro, below it the index of a bracket.
constexpr double ValoreEsattoRichiesta = 100.0;

/// The linked parties of the request: a client that is gone is told, a counterparty stays nameless.
void ApplicaParti(Parcella& Nota, const Richiesta& Dati)
{
    Nota.IDCli = Dati.IDCli;
    Nota.IDCon = Dati.IDCon;
    if (Nota.IDCli > 0) {
        const std::optional<QString> Nome = CercaCliente(Nota.IDCli);
        if (!Nome)
            MsgErrore(u"Il cliente associato alla parcella non è stato trovato!"_s);
        Nota.txtCliente.Testo = Nome.value_or(QString());
        Nota.txtDatiStaCli.Testo = Nota.txtCliente.Testo;
    }
    if (Nota.IDCon > 0) {
        Nota.txtControp.Testo = CercaControparte(Nota.IDCon, u"Nominativo"_s).value_or(QString());
        Nota.txtDatiStaControp.Testo = Nota.txtControp.Testo;
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

/// True when the request asks for an entry that its list lacks.
bool ChiedeOltreGliElenchi(const Parcella& Nota, const Richiesta& Dati)
{
    if (FuoriElenco(Dati.Categoria, VociCategoria().size()) ||
        FuoriElenco(Dati.Autorita, Nota.ListaAutorita.size()))
        return true;
    return Nota.CodCateg != Penale && Dati.Valore < ValoreEsattoRichiesta &&
           FuoriElenco(IndiceScaglione(Dati), Nota.ListaScaglioni.size());
}

void ApplicaRichiesta(Parcella& Nota, const Richiesta& Dati)
{
    ApplicaParti(Nota, Dati);
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
        GestioneErrori(Errore(9));  // what is missing stays unselected, the rest of the request holds
    Nota.NsRif = Dati.ID;
    Nota.Scelta = Dati.Scelta;
}

}  // namespace

void AzzeraNota(Parcella& Nota)
{
    Parcella Nuova;
    Nuova.Nome = Nota.Nome;
    Nuova.InsUltimaOno = Nota.InsUltimaOno;
    Nuova.InsUltimaDir = Nota.InsUltimaDir;
    Nuova.IDMultipla = Nota.IDMultipla;  // windows are linked before the note comes into them
    Nota = std::move(Nuova);
    AzzeraVariazione(Nota);
    Nota.Pronta = true;
}

void NuovaParcella(Parcella& Nota, const QString& ID)
{
    AzzeraNota(Nota);
    SelezionaInSilenzio(Nota, NessunaVoce, NessunaVoce, NessunaVoce);
    if (!ID.isEmpty())
        ApplicaRichiesta(Nota, sessione::RichiestaPV2);

    Nota.chkIva.Attiva = true;
    Nota.txtIVA.Testo = CStr(sessione::IVA);
    Nota.chkCP.Attiva = true;
    Nota.txtCP.Testo = CStr(sessione::CP);

    RicordaStampa(Nota);
    Nota.Pronta = true;
    Nota.RicalcoloNecessario = false;
    Nota.Fuoco = CampoNota::Nessuno;
    SetModificata(Nota, false);
}

void SetModificata(Parcella& Nota, bool Valore)
{
    Nota.Modificata = Valore;
}

void SegnaRicalcolo(Parcella& Nota)
{
    Nota.RicalcoloNecessario = true;
    if (!Nota.xOnorari.Vuota())
        Nota.RigheDaRicalcolare = true;
}

bool RicalcoloInSospeso(const Parcella& Nota)
{
    return Nota.RigheDaRicalcolare && !Nota.xOnorari.Vuota();
}
