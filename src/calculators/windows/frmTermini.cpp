#include "calculators/windows/frmTermini.h"

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

#include "calculators/windows/ui_frmTermini.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

frmTermini::frmTermini() : ui(std::make_unique<Ui::frmTermini>())
{
    ui->setupUi(this);
    ImpostaMenu(this, {{u"mnuNew"_s, u"Nuovo calcolo"_s, QKeySequence::New, [this] { mnuNew_Click(); }},
                       {u"mnuStampa"_s, u"Stampa"_s, QKeySequence::Print, [this] { mnuStampa_Click(); }}});
    {
        const QSignalBlocker Zitta(ui->cmbIncrTipo);
        for (const QStringView Voce : VociIncremento)
            ui->cmbIncrTipo->addItem(Voce.toString());
        ui->cmbIncrTipo->setCurrentIndex(-1);
    }
    constexpr double Ingrandimento = 1.4;
    constexpr int RigheRisultato = 2;  // the date, and whether it was moved
    PreparaPannello(Campi(), Ingrandimento, RigheRisultato);
    for (QToolButton* Pulsante : {ui->cmdCalend_0, ui->cmdCalend_1})
        Pulsante->setIcon(aspetto::Icona(u"calendario"_s));
    NonSpostare(ui->cmdCalend_1);
    NonSpostare(ui->Calendario);
    PreparaModulo(this, u"termini"_s);
    Collegamenti();
    ui->mskDecorr->ImpostaTesto(u"  /  /    "_s);
    ui->Calendario->ImpostaData(Oggi());
}

frmTermini::~frmTermini() = default;

void frmTermini::Collegamenti()
{
    FiltraTasti(ui->txtIncrNum, u"0123456789"_s);
    CatenaInvio({ui->mskDecorr, ui->txtIncrNum, ui->cmbIncrTipo, ui->chkSosp, ui->chkLibero, ui->chkSabato,
                 ui->optTipoScad_0, ui->optTipoScad_1},
                [this] { cmdEsegui_Click(); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return DidascaliaPulita(ui->lblRisult->text()); });

    const auto Cambiato = [this] { Pulisci(); };
    CollegaDecorrenza(Campi(), Cambiato);
    Collega(ui->txtIncrNum, &QLineEdit::textEdited, this, Cambiato);
    Collega(ui->cmbIncrTipo, &QComboBox::currentIndexChanged, this, Cambiato);
    for (const QCheckBox* Casella : {ui->chkSosp, ui->chkLibero, ui->chkSabato})
        Collega(Casella, &QCheckBox::clicked, this, Cambiato);
    Collega(ui->optTipoScad_0, &QRadioButton::toggled, this, Cambiato);

    Collega(ui->cmdEsegui, &QPushButton::clicked, this, [this] { cmdEsegui_Click(); });
    Collega(ui->cmdAvvertenze, &QPushButton::clicked, this, [this] { cmdAvvertenze_Click(); });
    Collega(ui->cmdCalend_0, &QToolButton::clicked, this, [this] { cmdCalend_Click(0); });
    Collega(ui->cmdCalend_1, &QToolButton::clicked, this, [this] { cmdCalend_Click(1); });
    Collega(ui->Calendario, &CalendarioMensile::DataScelta, this,
            [this, Cambiato](const QDate& Data) { PrendiData(Campi(), Data, Cambiato); });
}

void frmTermini::Mostra()
{
    ui->cmdAvvertenze->setEnabled(HaAvvertenze());
    // Messages, other programs and the print window activate the form too: they must not reset what was
    // chosen.
    if (MostraModulo(this))
        Form_Activate();
}

void frmTermini::Form_Activate()
{
    ui->mskDecorr->setFocus();
    ui->cmbIncrTipo->setCurrentIndex(TipoGiorni);
    ui->chkSosp->setChecked(true);
    ui->optTipoScad_0->setChecked(true);
}

CampiTermini frmTermini::Campi() const
{
    return {ui->mskDecorr, ui->chkSosp,      ui->chkSabato, ui->Calendario,
            ui->lblRisult, ui->lblSettembre, ui->cmdCopia};
}

DatiTermine frmTermini::Dati() const
{
    return {.Decorrenza = ui->mskDecorr->Testo(),
            .Numero = ui->txtIncrNum->text(),
            .Tipo = ui->cmbIncrTipo->currentIndex(),
            .Opzioni = {.Sospensione = ui->chkSosp->isChecked(),
                        .Libero = ui->chkLibero->isChecked(),
                        .Sabato = ui->chkSabato->isChecked(),
                        .Antecedente = ui->optTipoScad_1->isChecked()}};
}

void frmTermini::Pulisci()
{
    ui->cmdCalend_1->hide();
    ScriviRisultato(Campi(), {});
    Segna();
}

void frmTermini::Segna()
{
    SegnaGiorni(Campi(), ui->lblRisult->text().isEmpty() ? QList<QDate>() : QList{DataCorrente});
}

void frmTermini::cmdEsegui_Click()
{
    CalcolaDallaData(ui->mskDecorr, [this] { return Calcola(); });
}

bool frmTermini::Calcola()
{
    DatiTermine Caselle = Dati();
    if (TogliSabatoARitroso(Caselle.Opzioni)) {
        ui->chkSabato->setChecked(false);
        Pulisci();
    }
    if (const auto Trovato = DifettoTermine(Caselle)) {
        MsgErrore(Trovato->Messaggio);
        return false;
    }
    MostraScadenza(CalcolaTermine(Caselle));
    return true;
}

void frmTermini::MostraScadenza(const ContoTermine& Conto)
{
    DataCorrente = Conto.DataCorrente;
    Campanello();
    ScriviRisultato(Campi(), TestoTermine(Conto), Conto.SettembreSospeso);
    ui->cmdCalend_1->show();
    ui->Calendario->ImpostaData(DataCorrente);
    Segna();
}

void frmTermini::cmdCalend_Click(int Indice)
{
    if (Indice == 1)
        ui->Calendario->ImpostaData(DataCorrente);
    AlternaCalendario(Campi());
}

void frmTermini::cmdAvvertenze_Click()
{
    ApriAvvertenze(u"KR6 - Calcolo termini - Avvertenze"_s);
}

void frmTermini::mnuNew_Click()
{
    ui->mskDecorr->ImpostaTesto({});
    ui->txtIncrNum->clear();
    ui->cmbIncrTipo->setCurrentIndex(-1);
    ui->chkSosp->setChecked(true);
    ui->chkLibero->setChecked(false);
    ui->chkSabato->setChecked(false);
    ui->optTipoScad_0->setChecked(true);
    Pulisci();
    ui->mskDecorr->setFocus();
    Campanello();
}

void frmTermini::mnuStampa_Click()
{
    MostraStampa(u": calcolo termini"_s, [this](Superficie& vp) {
        return StampaTermine(vp, Dati(), ui->lblRisult->text(), AvvisoMostrato(Campi()));
    });
}
