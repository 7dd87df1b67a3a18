// Tab 1: the panel that graduates honoraria between minimum and maximum.
#include "feenote/windows/frmParcelle.h"

#include "platform/grid/griglia.h"
#include "platform/kit/collega.h"
#include "ui_SchedaOnorari.h"

#include <QAction>
#include <QShortcut>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {

/// As wide as the longest of its rows with the amounts of a large note; wider for larger ones, since an
/// amount that is cut would be another.
int LarghezzaPannello(const Ui::SchedaOnorari& Scheda, const PannelloModOno& Pannello)
{
    constexpr int Cornici = 48;
    const QFontMetrics Misure = Scheda.tdbFasceOno->fontMetrics();
    int Larghezza = Misure.horizontalAdvance(u"MASSIMI  (Tot.: 999.999.999,99)"_s);
    for (const QString& Riga : Pannello.RigheFasce)
        Larghezza = std::max(Larghezza, Misure.horizontalAdvance(Riga));
    const int Importo = Scheda.lblImp->sizeHint().width() + Scheda.lblImpOno->sizeHint().width();
    return std::max(Larghezza, Importo) + Cornici;
}

/// The three rows, all in sight, none cut.
void CreaFasce(QListWidget* Elenco)
{
    constexpr int Aria = 4;
    const int Altezza = Elenco->fontMetrics().height() + Aria;
    for (int Riga = 0; Riga < NumFasce; ++Riga)
        (new QListWidgetItem(Elenco))->setSizeHint({0, Altezza});
    Elenco->setFixedHeight(Altezza * NumFasce + 2 * Elenco->frameWidth());
}

void MostraFasce(QListWidget* Elenco, const PannelloModOno& Pannello)
{
    const QSignalBlocker Zitto(Elenco);
    for (int Riga = 0; Riga < Pannello.RigheFasce.size(); ++Riga)
        Elenco->item(Riga)->setText(Pannello.RigheFasce[Riga]);
    if (Pannello.Evidenziata == NessunaFascia)
        Elenco->clearSelection();
    else
        Elenco->setCurrentRow(Pannello.Evidenziata, QItemSelectionModel::ClearAndSelect);
}

}  // namespace

void frmParcelle::CollegaModOno()
{
    CreaFasce(uiOnorari->tdbFasceOno);
    uiOnorari->pctInsModOno->setFocusProxy(uiOnorari->sldGraduaOno);
    QAction* Variaz = TastiOno.Varia;
    Variaz->setCheckable(true);
    // Behind the command: a cell that refuses to be left releases the button too.
    Collega(Variaz, &QAction::triggered, this, [this] { MostraModOno(); });

    for (const bool Tutti : {false, true})
        Collega(Tutti ? uiOnorari->optModAll_1 : uiOnorari->optModAll_0, &QRadioButton::clicked, this,
                [this, Tutti] {
                    ScegliModAll(ModOno, Nota.xOnorari, Tutti);
                    MostraModOno();
                });
    Collega(uiOnorari->tdbFasceOno, &QListWidget::itemClicked, this, [this] { tdbFasceOno_Click(); });
    Collega(uiOnorari->tdbFasceOno, &QListWidget::itemSelectionChanged, this,
            [this] { tdbFasceOno_Click(); });
    Collega(uiOnorari->sldGraduaOno, &QSlider::actionTriggered, this, &frmParcelle::sldGraduaOno_Action);
    Collega(uiOnorari->sldGraduaOno, &QSlider::valueChanged, this, [this](int Posizione) {
        SpostaGradua(ModOno, Posizione);
        MostraModOno();
    });
    Collega(uiOnorari->cmdModOno, &QPushButton::clicked, this, [this] { cmdModOno_Click(); });
    Collega(uiOnorari->cmdAnnModOno, &QPushButton::clicked, this, [this] { cmdAnnModOno_Click(); });
    Collega(uiOnorari->tdbOnor, &Griglia::RigaCambiata, this, [this] {
        if (ModOno.Aperto)
            uiOnorari->tdbListaOno->TogliEvidenza();
        SeguiRigaModOno(ModOno, Nota.xOnorari, uiOnorari->tdbOnor->RigaCorrente());
        MostraModOno();
    });
    CollegaTastiModOno();
}

/// Within the panel Esc gives up and Enter confirms; on "Annulla" it gives up as well. Space chooses the row
/// that is marked already, as a click on it does.
void frmParcelle::CollegaTastiModOno()
{
    const auto Scorciatoia = [this](QWidget* Dove, Qt::Key Tasto, auto Fai) {
        auto* Una = new QShortcut(QKeySequence(Tasto), Dove);
        Una->setContext(Qt::WidgetWithChildrenShortcut);
        Collega(Una, &QShortcut::activated, this, Fai);
    };
    QWidget* Pannello = uiOnorari->pctInsModOno;
    const auto Invia = [this] {
        (uiOnorari->cmdAnnModOno->hasFocus() ? uiOnorari->cmdAnnModOno : uiOnorari->cmdModOno)->click();
    };
    Scorciatoia(Pannello, Qt::Key_Escape, [this] { cmdAnnModOno_Click(); });
    for (const Qt::Key Invio : {Qt::Key_Return, Qt::Key_Enter})
        Scorciatoia(Pannello, Invio, Invia);
    Scorciatoia(uiOnorari->tdbFasceOno, Qt::Key_Space, [this] { tdbFasceOno_Click(); });
}

void frmParcelle::MostraModOno()
{
    const Ui::SchedaOnorari& Scheda = *uiOnorari;
    TastiOno.Varia->setChecked(ModOno.Aperto);
    Scheda.pctInsModOno->setVisible(ModOno.Aperto);
    if (!ModOno.Aperto)
        return;
    Scheda.lblOnoDesc->setText(ModOno.OnoDesc);
    Scheda.lblImp->setText(ModOno.Imp);
    Scheda.lblImpOno->setText(ModOno.ImpOno);
    Scheda.pctInsModOno->setFixedWidth(LarghezzaPannello(Scheda, ModOno));
    (ModOno.Tutti ? Scheda.optModAll_1 : Scheda.optModAll_0)->setChecked(true);
    MostraFasce(Scheda.tdbFasceOno, ModOno);
    const QSignalBlocker Zitto(Scheda.sldGraduaOno);
    Scheda.sldGraduaOno->setValue(ModOno.Gradua);
    Scheda.cmdModOno->setEnabled(ModOno.Confermabile);
}

void frmParcelle::AbilitaModOno(bool Si)
{
    const bool Dentro = uiOnorari->pctInsModOno->isAncestorOf(focusWidget());
    if (Si) {
        uiOnorari->tdbListaOno->TogliEvidenza();
        ApriModOno(ModOno, Nota.xOnorari, uiOnorari->tdbOnor->RigaCorrente());
    } else {
        ChiudiModOno(ModOno);
    }
    MostraModOno();
    if (ModOno.Aperto)
        uiOnorari->sldGraduaOno->setFocus();
    else if (Dentro)
        uiOnorari->tdbOnor->setFocus();
}

void frmParcelle::tdbFasceOno_Click()
{
    const QList<QListWidgetItem*> Scelte = uiOnorari->tdbFasceOno->selectedItems();
    if (Scelte.isEmpty())
        return;
    ScegliFascia(ModOno, uiOnorari->tdbFasceOno->row(Scelte.first()));
    MostraModOno();
}

/// A step by keys leads on, wherever the amounts put the slider back.
void frmParcelle::sldGraduaOno_Action(int Azione)
{
    QSlider* Cursore = uiOnorari->sldGraduaOno;
    const bool Passo =
        Azione >= QAbstractSlider::SliderSingleStepAdd && Azione <= QAbstractSlider::SliderPageStepSub;
    if (Passo && Cursore->sliderPosition() != Cursore->value())
        Cursore->setSliderPosition(PassoGradua(ModOno, Cursore->value(), Cursore->sliderPosition()));
}

void frmParcelle::cmdModOno_Click()
{
    const bool Tutti = ModOno.Tutti;
    if (!uiOnorari->tdbOnor->Concludi() || !ConfermaModOno(ModOno, Nota.xOnorari))
        return;
    if (Tutti)
        uiOnorari->tdbOnor->AzzeraSelezione();
    SetModificata(true);
    AbilitaModOno(false);
    MostraTutto();
}

void frmParcelle::cmdAnnModOno_Click()
{
    uiOnorari->tdbOnor->AzzeraSelezione();
    AbilitaModOno(false);
}
