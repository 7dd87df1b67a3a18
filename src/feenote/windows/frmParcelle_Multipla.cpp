// The associated note: its choice, its window, its figures.
#include "core/aperture.h"
#include "core/modErrori.h"
#include "feenote/file/modMultipla.h"
#include "feenote/windows/SchedaAcconti.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/frmParcelle.h"
#include "feenote/windows/noteaperte.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A page on view is composed again when the partner has been left alone for so long, not at each letter.
constexpr int PausaComposizioneMs = 400;

}  // namespace

void frmParcelle::CollegaMulti()
{
    TimerMulti.setSingleShot(true);
    TimerMulti.setInterval(PausaComposizioneMs);
    Collega(&TimerMulti, &QTimer::timeout, this, [this] { Ricomponi(); });
}

frmParcelle* frmParcelle::FinestraMulti() const
{
    if (!Nota.Multipla())
        return nullptr;
    if (HaStampa() && Socio() != 0)
        return Parcelle(Socio());
    return FinestraConFile(Nota.txtPathParcMult);
}

bool frmParcelle::LeggiAssociata(const QString& Percorso, const frmParcelle* Aperta)
{
    const ImprontaNota Ora = ImprontaDi(Percorso);  // a change during the reading is seen the next time
    bool Fatta = false;
    Protetta([&] {
        const ClessidraAccesa Occupato;
        Fatta = AssociaMulti(Nota, Percorso, Aperta ? &Aperta->Nota : nullptr);
    });
    if (Fatta) {
        ImprontaMulti = Aperta ? std::nullopt : std::optional(Ora);
        if (Nota.Multi.Illeggibili > 0)
            InDialogo([this] { AvvisaIlleggibiliMulti(Nota); });
    }
    return Fatta;
}

void frmParcelle::ScegliMulti()
{
    if (DialogoAperto || !Aperture.TrovaParcella || !ConcludiCampo())
        return;
    const QString Scelta = InDialogo([this] { return Aperture.TrovaParcella(0, {}, Posto, u"multiple"_s); });
    if (!Scelta.isEmpty())
        AssociaNota(Scelta);
}

void frmParcelle::AssociaNota(const QString& Percorso)
{
    frmParcelle* Aperta = FinestraConFile(Percorso);
    if (!LeggiAssociata(Percorso, Aperta))
        return;
    if (Socio() != 0 && Parcelle(Socio()) != Aperta)
        Sciogli(*this);
    MultiCambiata();
}

void frmParcelle::ApriMulti()
{
    if (DialogoAperto || !Nota.Multipla() || !ConcludiCampo())
        return;
    frmParcelle* Aperta = FinestraMulti();
    if (!Aperta) {
        ApriParcella(Nota.txtPathParcMult, Posto, {});
        return;
    }
    // A window that is half of another pair stays so.
    if (Aperta->Socio() == 0)
        Unisci(*this, *Aperta);
    AttivaParcella(Aperta->Indice());
}

void frmParcelle::EliminaMulti()
{
    Sciogli(*this);
    TogliMulti(Nota);
    MultiCambiata();
}

bool frmParcelle::PrendiDallaFinestra()
{
    const frmParcelle* Aperta = FinestraMulti();
    if (!Aperta)
        return false;
    ImprontaMulti.reset();
    NotaAssociata Ora = DatiMulti(Aperta->Nota);
    if (Ora == Nota.Multi)
        return false;
    Nota.Multi = std::move(Ora);
    Acconti->MostraMultipla();
    RefreshDatiBase();
    RefreshGrid();
    SegueSocio();
    return true;
}

void frmParcelle::SocioCambiato()
{
    if (PrendiDallaFinestra())
        TimerMulti.start();
}

void frmParcelle::ComponiInAttesa()
{
    if (!TimerMulti.isActive())
        return;
    TimerMulti.stop();
    Ricomponi();
}

void frmParcelle::ControllaMulti()
{
    if (!Nota.Multipla())
        return;
    if (SuoFile(Nota, Nota.txtPathParcMult)) {
        EliminaMulti();  // the note was saved over its associated one
        return;
    }
    if (FinestraMulti()) {
        (void)PrendiDallaFinestra();
        return;
    }
    const ImprontaNota Ora = ImprontaDi(Nota.txtPathParcMult);
    if (ImprontaMulti == Ora)
        return;
    (void)LeggiAssociata(Nota.txtPathParcMult, nullptr);
    ImprontaMulti = Ora;  // what could not be read is told once
    MultiCambiata();
}

void frmParcelle::SegueMulti(const QString& Percorso)
{
    const frmParcelle* Aperta = FinestraMulti();
    if (Nota.Multipla() && !LeggiAssociata(Percorso, Aperta))
        EliminaMulti();  // the partner was saved over this very note
    MultiCambiata();
}

void frmParcelle::FileSostituito()
{
    Storia.SegnaSenzaFile();
    SetModificata(true);
}

void frmParcelle::MultiCambiata()
{
    Acconti->MostraMultipla();
    RefreshDatiBase();
    RefreshGrid();
    Ricomponi();
    SegueSocio();
}

/// An association is no payment; of a document of both it shows those that were made there meanwhile.
void frmParcelle::SegueSocio()
{
    if (!UscitaConSocio(Nota))
        AccontiVisti = CoperturaDi(Nota);
    else if (RivediStato())
        Cambiata();
}
