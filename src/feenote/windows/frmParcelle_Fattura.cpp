// From what an electronic invoice lacks to the field that gives it.
#include "addressbook/richiesta.h"
#include "core/aperture.h"
#include "core/schedeimpostazioni.h"
#include "core/sessione.h"
#include "feenote/einvoice/fattura.h"
#include "feenote/windows/PannelloFattura.h"
#include "feenote/windows/SchedaStampa.h"
#include "feenote/windows/casellenota.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/kit/campo.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using enum CampoFattura;

namespace {

/// A box of the settings.
struct VoceStudio
{
    CampoFattura Campo;
    impostazioni::CasellaStudio Casella;
};

constexpr std::array VociStudio{
    VoceStudio{StudioGenere, impostazioni::CasellaStudio::Genere},
    VoceStudio{StudioNome, impostazioni::CasellaStudio::Nome},
    VoceStudio{StudioPartitaIva, impostazioni::CasellaStudio::PartitaIva},
    VoceStudio{StudioCodiceFiscale, impostazioni::CasellaStudio::CodiceFiscale},
    VoceStudio{StudioIndirizzo, impostazioni::CasellaStudio::Via},
    VoceStudio{StudioCivico, impostazioni::CasellaStudio::Civico},
    VoceStudio{StudioCap, impostazioni::CasellaStudio::Cap},
    VoceStudio{StudioComune, impostazioni::CasellaStudio::Comune},
    VoceStudio{StudioProvincia, impostazioni::CasellaStudio::Provincia},
    VoceStudio{StudioRegime, impostazioni::CasellaStudio::Regime},
    VoceStudio{StudioIban, impostazioni::CasellaStudio::Iban},
    VoceStudio{StudioEmail, impostazioni::CasellaStudio::Email},
    VoceStudio{SceltaProgressivo, impostazioni::CasellaStudio::Progressivo},
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
    CasellaNota Casella;
};

constexpr std::array VociNota{
    VoceNota{NotaTipoStampa, CasellaNota::TipoStampa},
    VoceNota{NotaOggetto, CasellaNota::Oggetto},
    VoceNota{NotaOnorari, CasellaNota::Onorari},
    VoceNota{NotaSpese, CasellaNota::Spese},
    VoceNota{NotaAcconti, CasellaNota::Acconti},
    VoceNota{NotaSpeseGen, CasellaNota::SpeseGen},
    VoceNota{NotaCP, CasellaNota::CP},
    VoceNota{NotaIva, CasellaNota::Iva},
    VoceNota{NotaRA, CasellaNota::RA},
    VoceNota{NotaRegime, CasellaNota::RegimeSemplificato},
    VoceNota{NotaIvaDifferita, CasellaNota::IvaDifferita},
    VoceNota{NotaNumero, CasellaNota::NumeroFattura},
    VoceNota{NotaData, CasellaNota::DataFattura},
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
    if (const auto* Voce = TrovaVoce(VociStudio, Dove)) {
        // The certified mail is the office's in the file where there is one.
        const bool DiPec = Dove == StudioEmail && !sessione::StudioPec.isEmpty();
        Invoca(Aperture.CasellaImpostazioni, DiPec ? impostazioni::CasellaStudio::Pec : Voce->Casella);
    } else if (const auto* DelCliente = TrovaVoce(VociCliente, Dove)) {
        ApriCliente(DelCliente->Colonna.toString());
    } else if (Dove == Cliente) {
        ApriCliente({});
    } else if (const auto* DellaNota = TrovaVoce(VociNota, Dove)) {
        VaiAllaCasella(DellaNota->Casella);
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
