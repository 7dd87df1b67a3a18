#include "calculators/windows/frmCodFis.h"

#include "calculators/modCodFis.h"
#include "calculators/windows/campidata.h"
#include "calculators/windows/finestracalcolo.h"
#include "calculators/windows/gestimodulo.h"
#include "core/modErrori.h"
#include "platform/base/datatesto.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"

#include "ui_frmCodFis.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QSignalBlocker>
#include <QStringListModel>

using namespace Qt::StringLiterals;

namespace {

constexpr int VociElenco = 12;

/// The text of a box in dark red or in the palette's own colour.
void Tingi(QLineEdit* Casella, bool Sbagliato)
{
    QPalette Colori;
    if (Sbagliato)
        Colori.setColor(QPalette::Text, aspetto::Sbagliato());
    Casella->setPalette(Colori);
}

}  // namespace

frmCodFis::frmCodFis() : ui(std::make_unique<Ui::frmCodFis>())
{
    ui->setupUi(this);
    ui->cmdCopia->setIcon(aspetto::Icona(u"copia"_s));
    ui->cmdElabora->setIcon(aspetto::Icona(u"codfis"_s));
    PreparaCifra(ui->txtCodiceFiscale);
    SfondoPannello(ui->fraRisultato);
    // A code is read letter by letter.
    QFont Carattere = ui->txtCodiceFiscale->font();
    Carattere.setLetterSpacing(QFont::AbsoluteSpacing, 1);
    ui->txtCodiceFiscale->setFont(Carattere);
    PreparaModulo(this, u"codfis"_s);
    CreaElenco();
    Load();
    Collegamenti();
}

frmCodFis::~frmCodFis() = default;

void frmCodFis::CreaElenco()
{
    NomiElenco = new QStringListModel(this);
    Elenco = new QCompleter(NomiElenco, this);
    // The names come already chosen: the field itself completes by a rule of its own.
    Elenco->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    Elenco->setMaxVisibleItems(VociElenco);
    Elenco->setWidget(ui->txtComune);
    Elenco->popup()->setObjectName(u"lstComuni"_s);
    Elenco->popup()->setAccessibleName(u"Comuni che iniziano così"_s);
}

void frmCodFis::Load()
{
    ui->cboSesso->addItems({u"M"_s, u"F"_s});
    ui->cboSesso->setCurrentIndex(0);
    try {
        Comuni.emplace(PercorsoComuni());
        // The names are read now, so that the first key does not wait for them.
        (void)Comuni->Proponi(u"A"_s, 1);
    } catch (...) {
        FasMsg(ErroreCorrente());
    }
}

void frmCodFis::Collegamenti()
{
    const auto Abilita = [this] { ui->cmdElabora->setEnabled(true); };
    for (QLineEdit* Casella :
         std::initializer_list<QLineEdit*>{ui->txtCognome, ui->txtNome, ui->txtDataNascita, ui->txtComune})
        Collega(Casella, &QLineEdit::textChanged, this, Abilita);
    Collega(ui->cboSesso, &QComboBox::currentIndexChanged, this, Abilita);

    AlLasciaSempre(ui->txtDataNascita, [this] {
        const QString Testo = ui->txtDataNascita->Testo();
        if (const QString Intero = ConSecolo(Testo); Intero != Testo)
            ui->txtDataNascita->ImpostaTesto(Intero);
        DataSbagliata = !ui->txtDataNascita->Data();
        Colora();
        return true;
    });
    Collega(ui->txtComune, &QLineEdit::textEdited, this, &frmCodFis::txtComune_Change);
    Collega(ui->txtComune, &QLineEdit::returnPressed, this, &frmCodFis::txtComune_Invio);
    Collega(Elenco, qOverload<const QString&>(&QCompleter::activated), this, &frmCodFis::txtComune_Scelto);
    Collega(ui->cmdElabora, &QPushButton::clicked, this, &frmCodFis::cmdElabora_Click);

    // The last field has an Enter of its own: its list may be open.
    CatenaInvio({ui->txtCognome, ui->txtNome, ui->txtDataNascita, ui->cboSesso},
                [this] { ui->txtComune->setFocus(Qt::TabFocusReason); });
    CopiaRisultato(this, ui->cmdCopia, [this] { return ui->txtCodiceFiscale->text(); });
}

void frmCodFis::Mostra()
{
    if (MostraModulo(this))
        ui->txtCognome->setFocus();
}

void frmCodFis::changeEvent(QEvent* Evento)
{
    QDialog::changeEvent(Evento);
    if (Evento->type() == QEvent::ApplicationPaletteChange)
        Colora();
}

void frmCodFis::cmdElabora_Click()
{
    if (!ConcludiCampo() || !ui->cmdElabora->isEnabled())
        return;
    const auto Nascita = ui->txtDataNascita->Data();
    if (!Nascita) {
        MsgErrore(u"La data di nascita non e' valida."_s);
        RidaiFuoco(ui->txtDataNascita);
        return;
    }
    ui->txtCodiceFiscale->setText(CalcoloCodFis(ui->txtCognome->text(), ui->txtNome->text(), *Nascita,
                                                ui->cboSesso->currentText(), Campo.CodComune.trimmed()));
    LasciaSelezione();
}

// ---- municipality -------------------------------------------------------------------------------

void frmCodFis::txtComune_Change(const QString& Testo)
{
    if (!Comuni)
        return;
    Campo.Testo = Testo;
    CercaComune(*Comuni, Campo);
    MostraComune();
    if (Campo.RidaiFuoco)
        ui->txtComune->setFocus(Qt::OtherFocusReason);
    ProponiComuni(Testo);
}

/// Text, selection and colour as the lookup left them; beside them the province found.
void frmCodFis::MostraComune()
{
    if (Campo.Selezione >= 0) {
        ui->txtComune->setText(Campo.Testo);
        ui->txtComune->setSelection(Campo.Selezione, int(Campo.Testo.size()) - Campo.Selezione);
    }
    const bool Noto = !Campo.CodComune.isEmpty() && Campo.CodComune != u"?";
    ui->lblProvincia->setText(Noto ? u"%1  %2"_s.arg(Campo.Provincia, Campo.CodComune) : QString());
    Colora();
}

void frmCodFis::Colora()
{
    Tingi(ui->txtComune, Campo.Rosso);
    Tingi(ui->txtDataNascita, DataSbagliata);
}

void frmCodFis::ProponiComuni(const QString& Testo)
{
    const QStringList Nomi = Comuni->Proponi(Testo, VociElenco);
    const bool Uno = Nomi.size() == 1 && Nomi.first() == ui->txtComune->text();
    if (Nomi.isEmpty() || Uno) {
        Elenco->popup()->hide();
        return;
    }
    NomiElenco->setStringList(Nomi);
    Elenco->complete();
}

/// A name taken from the list: its row, as if it had been typed whole.
void frmCodFis::txtComune_Scelto(const QString& Nome)
{
    // Enter with nothing marked hands over the first row, which nobody has chosen.
    if (!Elenco->popup()->selectionModel()->hasSelection())
        return;
    const auto Trovato = Comuni->Trova(Nome);
    if (!Trovato)
        return;
    Campo = {Trovato->Nome, Trovato->Nome, -1, false, false, Trovato->Codice, Trovato->Provincia};
    ui->txtComune->setText(Campo.Testo);
    MostraComune();
}

/// Enter takes what is marked in the list, else it calculates.
void frmCodFis::txtComune_Invio()
{
    QAbstractItemView* Lista = Elenco->popup();
    if (Lista->isVisible() && Lista->selectionModel()->hasSelection())
        return;
    Lista->hide();
    cmdElabora_Click();
}
