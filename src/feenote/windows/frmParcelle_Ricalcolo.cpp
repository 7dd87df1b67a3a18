// The bar that says that the lines are older than the parameters, and mends it.
#include "feenote/windows/frmParcelle.h"

#include "feenote/modParametri.h"
#include "feenote/windows/SchedaOnorari.h"
#include "feenote/windows/SchedaStampa.h"
#include "feenote/windows/ui_frmParcelle.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"

using namespace Qt::StringLiterals;

namespace {

const QString DaRicalcolare = u"Onorari da ricalcolare con i nuovi parametri"_s;

/// The tabs that show the amounts of the lines, or what they follow from. The honoraria recalculate when they
/// are entered, and wait again where that was taken back; the expenses depend on no parameter.
bool Riguarda(int Scheda)
{
    return Scheda == SchedaBase || Scheda == SchedaListaOnorari || Scheda == SchedaImposte ||
           Scheda == SchedaDiStampa;
}

}  // namespace

void frmParcelle::CollegaRicalcolo()
{
    QPalette Colori = ui->barRicalcolo->palette();
    Colori.setColor(QPalette::Window, aspetto::RigaSelezionata());
    Colori.setColor(QPalette::WindowText, aspetto::TestoRigaSelezionata());
    ui->barRicalcolo->setPalette(Colori);
    ui->barRicalcolo->setAutoFillBackground(true);
    ui->lblRicalcolo->setText(DaRicalcolare);
    Collega(ui->cmdRicalcola, &QPushButton::clicked, this, [this] { cmdRicalcola_Click(); });
}

void frmParcelle::MostraRicalcolo()
{
    const bool InSospeso = RicalcoloInSospeso(Nota);
    ui->barRicalcolo->setVisible(InSospeso && Riguarda(Scheda()));
    Stampa->ImpostaAvviso(InSospeso ? DaRicalcolare : QString());
}

/// What entering the honoraria does, without going there; the flag of a reopened note is not set any more.
void frmParcelle::cmdRicalcola_Click()
{
    if (DialogoAperto || !ConcludiCampo())
        return;
    if (Scheda() != SchedaBase || CheckOK(Nota, true)) {
        Nota.RicalcoloNecessario = true;
        Onorari->Entra();
    }
    MostraTutto();
    Ricomponi();
}
