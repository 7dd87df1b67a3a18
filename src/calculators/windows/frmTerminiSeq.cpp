#include "calculators/windows/frmTerminiSeq.h"

#include "calculators/modStampaTermini.h"
#include "calculators/windows/finestracalcolo.h"
#include "core/modErrori.h"
#include "platform/calendar/calendario.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/orologio.h"
#include "platform/system/shell.h"
#include "print/windows/frmPrint.h"

#include "calculators/windows/ui_frmTerminiSeq.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

frmTerminiSeq::frmTerminiSeq() : ui(std::make_unique<Ui::frmTerminiSeq>())
{
    ui->setupUi(this);
    ImpostaMenu(this, {{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New, [this] { mnuNew_Click(); }},
                       {u"mnuPrint"_s, u"Stampa"_s, QKeySequence::Print, [this] { mnuPrint_Click(); }}});
    for (const ArticoloTermini& Articolo : Articoli())
        ui->cmbArticolo->addItem(Articolo.Voce.toString());
    ui->cmbArticolo->setCurrentIndex(0);
    constexpr double Ingrandimento = 1.15;
    constexpr int RigheRisultato = 6;  // three links, a blank line before each
    PreparaPannello(Campi(), Ingrandimento, RigheRisultato);
    ui->cmdCalend->setIcon(aspetto::Icona(u"calendario"_s));
    ui->Calendario->ImpostaNomeInizio(u"Udienza"_s);
    PreparaModulo(this, u"sequenz"_s);
    Collegamenti();
    ui->mskDecorr->ImpostaTesto(u"  /  /    "_s);
    ui->Calendario->ImpostaData(Oggi());
}

frmTerminiSeq::~frmTerminiSeq() = default;

void frmTerminiSeq::Collegamenti()
{
    CatenaInvio({ui->cmbArticolo, ui->mskDecorr, ui->chkSosp, ui->chkSabato}, [this] { cmdEsegui_Click(); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return DidascaliaPulita(Risultato); });
    ui->cmbArticolo->installEventFilter(this);
    ui->chkSosp->installEventFilter(this);

    const auto Cambiato = [this] { Pulisci(); };
    CollegaDecorrenza(Campi(), Cambiato);
    Collega(ui->cmbArticolo, &QComboBox::currentIndexChanged, this, Cambiato);
    for (const QCheckBox* Casella : {ui->chkSosp, ui->chkSabato})
        Collega(Casella, &QCheckBox::clicked, this, Cambiato);

    Collega(ui->cmdEsegui, &QPushButton::clicked, this, [this] { cmdEsegui_Click(); });
    Collega(ui->cmdAvvertenze, &QPushButton::clicked, this, [this] { cmdAvvertenze_Click(); });
    Collega(ui->cmdCalend, &QToolButton::clicked, this, [this] { cmdCalend_Click(); });
    Collega(ui->Calendario, &CalendarioMensile::DataScelta, this, [this, Cambiato](const QDate& Data) {
        PrendiData(Campi(), Data, Cambiato);
        ui->Calendario->hide();
    });
}

void frmTerminiSeq::Mostra()
{
    ui->cmdAvvertenze->setEnabled(HaAvvertenze());
    MostraModulo(this);
}

bool frmTerminiSeq::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() == QEvent::FocusIn && (Oggetto == ui->chkSosp || Oggetto == ui->cmbArticolo))
        ui->Calendario->hide();
    return QDialog::eventFilter(Oggetto, Evento);
}

CampiTermini frmTerminiSeq::Campi() const
{
    return {ui->mskDecorr, ui->chkSosp,      ui->chkSabato, ui->Calendario,
            ui->lblRisult, ui->lblSettembre, ui->cmdCopia};
}

OpzioniTermine frmTerminiSeq::Opzioni() const
{
    return {.Sospensione = ui->chkSosp->isChecked(), .Sabato = ui->chkSabato->isChecked()};
}

void frmTerminiSeq::Pulisci()
{
    Scadenze.clear();
    Risultato.clear();
    ScriviRisultato(Campi(), {});
    Segna();
}

void frmTerminiSeq::Segna()
{
    QList<QDate> Giorni;
    for (const ScadenzaAnello& Scadenza : Scadenze)
        Giorni << Scadenza.Data;
    SegnaGiorni(Campi(), Giorni);
}

void frmTerminiSeq::cmdEsegui_Click()
{
    CalcolaDallaData(ui->mskDecorr, [this] { return Calcola(); });
}

bool frmTerminiSeq::Calcola()
{
    const QString Udienza = ui->mskDecorr->Testo();
    if (const auto Trovato = DifettoUdienza(Udienza)) {
        MsgErrore(Trovato->Messaggio);
        return false;
    }
    MostraScadenze(CalcolaSequenza(Udienza, ui->cmbArticolo->currentIndex(), Opzioni()));
    return true;
}

void frmTerminiSeq::MostraScadenze(const QList<ScadenzaAnello>& Calcolate)
{
    Scadenze = Calcolate;
    Risultato = TestoSequenza(ui->cmbArticolo->currentIndex(), Scadenze);
    // One line end on screen: a label would show the carriage return as one more.
    ScriviRisultato(Campi(), QString(Risultato).remove(u'\r'), SettembreSospeso(Scadenze));
    ui->Calendario->ImpostaData(Scadenze.first().Data);
    Segna();
    Campanello();
}

void frmTerminiSeq::cmdCalend_Click()
{
    AlternaCalendario(Campi());
}

void frmTerminiSeq::cmdAvvertenze_Click()
{
    ApriAvvertenze(u"VDM - Calcolo termini - Avvertenze"_s);
}

void frmTerminiSeq::mnuNew_Click()
{
    ui->mskDecorr->ImpostaTesto({});
    ui->Calendario->hide();
    ui->cmbArticolo->setCurrentIndex(0);
    ui->chkSosp->setChecked(true);
    ui->chkSabato->setChecked(false);
    Pulisci();
    ui->mskDecorr->setFocus();
    Campanello();
}

void frmTerminiSeq::mnuPrint_Click()
{
    MostraStampa(u": calcolo termini sequenziali"_s, [this](Superficie& vp) {
        return StampaSequenza(vp, ui->mskDecorr->Testo(), ui->cmbArticolo->currentIndex(), Opzioni(),
                              Risultato, AvvisoMostrato(Campi()));
    });
}
