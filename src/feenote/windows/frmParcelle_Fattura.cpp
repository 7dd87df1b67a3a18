// From what an electronic invoice lacks to the field that gives it.
#include "addressbook/richiesta.h"
#include "core/aperture.h"
#include "core/schedeimpostazioni.h"
#include "core/sessione.h"
#include "feenote/einvoice/fattura.h"
#include "feenote/windows/PannelloFattura.h"
#include "feenote/windows/SchedaStampa.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/kit/campo.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using enum CampoFattura;

namespace {

/// A box of the settings, by its tab there.
struct VoceStudio
{
    CampoFattura Campo;
    impostazioni::Scheda Scheda;
    QStringView Casella;
};

constexpr auto DatiStudio = impostazioni::SchedaDatiStudio;
constexpr auto DatiFattura = impostazioni::SchedaFatturaElettronica;
/// The certified mail, which is the office's in the file where there is one.
constexpr VoceStudio PecStudio{StudioEmail, DatiFattura, u"txtPecStudio"};
constexpr std::array VociStudio{
    VoceStudio{StudioGenere, DatiFattura, u"cmbTipoStudio"},
    VoceStudio{StudioNome, DatiStudio, u"txtNomeStudio"},
    VoceStudio{StudioPartitaIva, DatiStudio, u"txtPivaStudio"},
    VoceStudio{StudioCodiceFiscale, DatiStudio, u"txtCodFisStudio"},
    VoceStudio{StudioIndirizzo, DatiFattura, u"txtVia"},
    VoceStudio{StudioCivico, DatiFattura, u"txtCivico"},
    VoceStudio{StudioCap, DatiFattura, u"txtCap"},
    VoceStudio{StudioComune, DatiFattura, u"txtComune"},
    VoceStudio{StudioProvincia, DatiFattura, u"txtProv"},
    VoceStudio{StudioRegime, DatiFattura, u"cmbRegime"},
    VoceStudio{StudioIban, DatiStudio, u"txtIBAN"},
    VoceStudio{StudioEmail, DatiStudio, u"txtEMail"},
    VoceStudio{SceltaProgressivo, DatiFattura, u"txtProgTrasm"},
};

/// A column of the client's row.
struct VoceCliente
{
    CampoFattura Campo;
    QStringView Colonna;
};

constexpr std::array VociCliente{
    VoceCliente{ClienteGenere, u"TipoSoggetto"},
    VoceCliente{ClienteNome, u"Nominativo"},
    VoceCliente{ClientePartitaIva, u"PIva"},
    VoceCliente{ClienteCodiceFiscale, u"CodFis"},
    VoceCliente{ClienteIndirizzo, u"Indirizzo"},
    VoceCliente{ClienteCivico, u"Indirizzo"},
    VoceCliente{ClienteCap, u"Cap"},
    VoceCliente{ClienteComune, u"Citta"},
    VoceCliente{ClienteProvincia, u"Prov"},
    VoceCliente{ClienteNazione, u"Nazione"},
    VoceCliente{ClienteDestinatario, u"CodDestinatario"},
    VoceCliente{ClientePec, u"Pec"},
};

/// A control of the note's window.
struct VoceNota
{
    CampoFattura Campo;
    int Scheda;
    QStringView Controllo;
};

constexpr std::array VociNota{
    VoceNota{NotaTipoStampa, SchedaDiStampa, u"cmbTipoStampa"},
    VoceNota{NotaOggetto, SchedaDiStampa, u"txtDatiStaOgg"},
    VoceNota{NotaOnorari, SchedaListaOnorari, u"tdbOnor"},
    VoceNota{NotaSpese, SchedaListaSpese, u"tdbDir"},
    VoceNota{NotaAcconti, SchedaImposte, u"tdbAcconti"},
    VoceNota{NotaSpeseGen, SchedaImposte, u"chkSpeseGen"},
    VoceNota{NotaCP, SchedaImposte, u"chkCP"},
    VoceNota{NotaIva, SchedaImposte, u"chkIva"},
    VoceNota{NotaRA, SchedaImposte, u"chkRA"},
    VoceNota{NotaRegime, SchedaDiStampa, u"chkRegSempl"},
    VoceNota{NotaIvaDifferita, SchedaDiStampa, u"chkIvaDiff"},
    VoceNota{NotaNumero, SchedaDiStampa, u"txtDatiPar_11"},
    VoceNota{NotaData, SchedaDiStampa, u"txtDatiPar_12"},
};

template <class Tabella>
auto TrovaVoce(const Tabella& Voci, CampoFattura Dove)
{
    const auto Trovata = std::ranges::find(Voci, Dove, &Tabella::value_type::Campo);
    return Trovata != Voci.end() ? &*Trovata : nullptr;
}

}  // namespace

void frmParcelle::VaiAlCampo(CampoFattura Dove)
{
    if (!ConcludiCampo())
        return;
    const bool DiPec = Dove == StudioEmail && !sessione::StudioPec.isEmpty();
    if (const auto* Voce = DiPec ? &PecStudio : TrovaVoce(VociStudio, Dove)) {
        Invoca(Aperture.CasellaImpostazioni, Voce->Scheda, Voce->Casella.toString());
    } else if (const auto* DelCliente = TrovaVoce(VociCliente, Dove)) {
        ApriCliente(DelCliente->Colonna.toString());
    } else if (Dove == Cliente) {
        ApriCliente({});
    } else if (const auto* DellaNota = TrovaVoce(VociNota, Dove)) {
        VaiAllaScheda(DellaNota->Scheda);
        auto* Campo = findChild<QWidget*>(DellaNota->Controllo.toString());
        if (Campo && Scheda() == DellaNota->Scheda)
            RidaiFuoco(Campo);
    }
}

void frmParcelle::ApriCliente(const QString& Colonna)
{
    if (!Aperture.RubricaParcella)
        return;
    RichiestaRubrica Chiesta = RichiestaCliente();
    if (Nota.IDCli > 0) {
        Chiesta.MenuStart = u"edit"_s;
        Chiesta.KeyStart = u"ID="_s + QString::number(Nota.IDCli);
        Chiesta.CampoStart = Colonna;
    }
    Aperture.RubricaParcella(Chiesta);
}
