// How the document stands on its page and in the preview, and the mail that it leaves with.
#include "feenote/windows/SchedaStampa.h"

#include "core/modErrori.h"
#include "core/parametri.h"
#include "feenote/modStato.h"
#include "feenote/windows/cornicenota.h"
#include "feenote/windows/inviodocumento.h"
#include "feenote/windows/ui_SchedaStampa.h"
#include "platform/kit/collega.h"
#include "platform/preview/vistastampa.h"

#include <QPointer>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString ChiaveAdattamento = u"AdattaAnteprima"_s;

/// A lasting fit of the preview, as the settings keep it.
struct VoceAdattamento
{
    QStringView Valore;
    int Modo;
};

constexpr std::array VociAdattamento{
    VoceAdattamento{u"pagina", VistaStampa::ZoomIntera},
    VoceAdattamento{u"larghezza", VistaStampa::ZoomLarghezza},
};

}  // namespace

void SchedaStampa::CollegaPagina()
{
    const QString Tenuto = Impostazione(ChiaveAdattamento);
    for (const VoceAdattamento& Voce : VociAdattamento)
        if (Tenuto == Voce.Valore)
            ui->vp->ImpostaZoomMode(Voce.Modo);
    Collega(ui->vp, &VistaStampa::AdattamentoScelto, this, &SchedaStampa::RicordaAdattamento);
    Collega(ui->chkUnaPagina, &QCheckBox::clicked, this, [this](bool Si) {
        Cornice.ApplicaStampa([&] {
            Nota.UnaPagina = Si;
            SetModificata(Nota, true);
        });
    });
}

void SchedaStampa::RicordaAdattamento(int Modo)
{
    // A percentage is for this window: the next one begins with the lasting choice, or with its own scale.
    QString Valore;
    for (const VoceAdattamento& Voce : VociAdattamento)
        if (Voce.Modo == Modo)
            Valore = Voce.Valore.toString();
    if (Valore != Impostazione(ChiaveAdattamento))
        RicordaImpostazioni({{ChiaveAdattamento, Valore}});
}

void SchedaStampa::MostraPagina()
{
    const Impaginazione& Pagine = ui->vp->Pagine();
    const bool NonBasta = Nota.UnaPagina && Pagine.NumeroPagine() > 1;
    ui->lblUnaPagina->setVisible(NonBasta);
    if (NonBasta)
        ui->lblUnaPagina->setText(
            u"Non sta in una pagina: righe e spazi restano come sono, su %1 pagine."_s.arg(
                Pagine.NumeroPagine()));
}

void SchedaStampa::Invia()
{
    if (Cornice.InDomanda())
        return;
    if (!SiCompone())
        return;
    const auto Scrivi = [this](const QString& File, const QString& Titolo) {
        ui->vp->Pagine().ScriviPdf(File, Titolo);
    };
    const int Tipo = Nota.cmbTipoStampa;
    const auto Questo = std::make_shared<Invio>(Invio{Nota, Tipo, Cornice.Numero(), {}, {}});
    Attesi.append(Questo);
    const auto Risposto = [Scheda = QPointer(this), Questo](bool Partito) {
        if (Scheda)
            Partito ? Scheda->Inviato(Questo) : Scheda->NonInviato(Questo);
    };
    try {
        Cornice.InDialogo([&] { InviaDocumento(Nota, Tipo, Scrivi, Risposto); });
    } catch (...) {
        Attesi.removeOne(Questo);  // without its PDF nothing has left, and nobody answers
        throw;
    }
}

// The mail has opened, perhaps while the window asks something, or has another note by now. What the PDF asks
// for is what has gone out, whatever was written into the note meanwhile; a state that has gone on goes on
// from there.
void SchedaStampa::Inviato(const InvioChiesto& Questo)
{
    constexpr int AttesaMs = 500;
    if (!Attesi.contains(Questo))
        return;
    if (Cornice.InDomanda()) {
        QTimer::singleShot(AttesaMs, this, [this, Questo] { Inviato(Questo); });
        return;
    }
    Attesi.removeOne(Questo);
    Questo->Uscita.Stato = Nota.Stato;
    if (Cornice.Numero() != Questo->Numero || !NotaInviata(Questo->Uscita, Questo->Tipo))
        return;
    Questo->Prima = Nota.Stato;
    Questo->Poi = Questo->Uscita.Stato;
    Protetta([&] { Cornice.DocumentoUscitoPrima(*Questo->Poi); });
}

// No mail has opened; that may show when the note says already that one has.
void SchedaStampa::NonInviato(const InvioChiesto& Questo)
{
    constexpr int AttesaMs = 500;
    Attesi.removeOne(Questo);
    if (!Questo->Poi || Cornice.Numero() != Questo->Numero || Nota.Stato != *Questo->Poi)
        return;
    if (Cornice.InDomanda())
        QTimer::singleShot(AttesaMs, this, [this, Questo] { NonInviato(Questo); });
    else
        Protetta([&] { Cornice.DocumentoUscitoPrima(*Questo->Prima); });
}

void SchedaStampa::ConcludiInvii()
{
    for (const QList<InvioChiesto> Tutti = Attesi; const InvioChiesto& Questo : Tutti)
        Inviato(Questo);
}
