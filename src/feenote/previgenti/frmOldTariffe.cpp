#include "feenote/previgenti/frmOldTariffe.h"

#include "feenote/previgenti/ui_frmOldTariffe.h"
#include "feenote/windows/frmParcelle.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/system/messaggi.h"

using namespace Qt::StringLiterals;

namespace {

QString Spiegazione(frmOldTariffe::Motivo Perche)
{
    if (Perche == frmOldTariffe::PerApplicare)
        return u"Per l'applicazione delle tariffe richieste è necessario specificare in quale dei "
               u"seguenti scaglioni della tariffa previgente, è compreso il valore della causa."_s;
    return u"Per ricalcolare l'importo dei diritti già inseriti è necessario precisare in quali dei "
           u"seguenti scaglioni della tariffa previgente è compreso il valore della causa.\n"
           u"Dopo aver precisato lo scaglione, cliccare nuovamente sulla tariffa."_s;
}

}  // namespace

// A child of the fee-note window would be disabled with it.
frmOldTariffe::frmOldTariffe(frmParcelle* Finestra, Motivo Perche)
    : QDialog(Finestra->window()), ui(std::make_unique<Ui::frmOldTariffe>()), Parcella(Finestra)
{
    ui->setupUi(this);
    ui->lblSpiegazione->setText(Spiegazione(Perche));
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    Collega(ui->cmbOldScaglioni, &QComboBox::currentIndexChanged, this,
            [this](int Scelta) { ui->cmdConferma->setEnabled(Scelta >= 0); });
    Collega(ui->cmdConferma, &QPushButton::clicked, this, [this] { cmdConferma_Click(); });
    Collega(Finestra, &QObject::destroyed, this, [this] { Parcella = nullptr; });
}

frmOldTariffe::~frmOldTariffe() = default;

void frmOldTariffe::AggiungiScaglione(const QString& DesVal, int NumSca)
{
    const QSignalBlocker Zitto(ui->cmbOldScaglioni);
    ui->cmbOldScaglioni->addItem(DesVal, NumSca);
    ui->cmbOldScaglioni->setCurrentIndex(-1);
}

void frmOldTariffe::Apri()
{
    Parcella->setEnabled(false);
    setEnabled(true);  // outside a frame the fee-note window is the parent of this one
    show();
}

void frmOldTariffe::cmdConferma_Click()
{
    if (Parcella)
        Parcella->Nota.ScaglioneOld = ui->cmbOldScaglioni->currentData().toInt();
    accept();
}

void frmOldTariffe::done(int Esito)
{
    if (Parcella && Parcella->Nota.ScaglioneOld == 0)
        MsgBox(u"Attenzione: non si possono inserire diritti con la tariffa previgente se non viene "
               u"specificato il relativo scaglione!"_s,
               vbInformation, TitoloMessaggio.toString());
    if (Parcella)
        Parcella->setEnabled(true);
    QDialog::done(Esito);
}

#include "moc_frmOldTariffe.cpp"
