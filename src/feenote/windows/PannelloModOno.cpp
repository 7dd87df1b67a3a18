#include "feenote/windows/PannelloModOno.h"

#include "feenote/windows/ui_PannelloModOno.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"

#include <QShortcut>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

PannelloModOno::PannelloModOno(Parcella& Dati, QWidget* Padre)
    : QFrame(Padre), Nota(Dati), Righe(Dati.xOnorari), ui(std::make_unique<Ui::PannelloModOno>())
{
    ui->setupUi(this);
    hide();
    setFocusProxy(ui->sldGraduaOno);
    CreaFasce();
    Collega(ui->optModAll_0, &QRadioButton::clicked, this, [this] { optModAll_Click(false); });
    Collega(ui->optModAll_1, &QRadioButton::clicked, this, [this] { optModAll_Click(true); });
    Collega(ui->tdbFasceOno, &QListWidget::itemClicked, this, [this] { tdbFasceOno_Click(); });
    Collega(ui->tdbFasceOno, &QListWidget::itemSelectionChanged, this, &PannelloModOno::tdbFasceOno_Click);
    Collega(ui->sldGraduaOno, &QSlider::actionTriggered, this, &PannelloModOno::sldGraduaOno_Action);
    Collega(ui->sldGraduaOno, &QSlider::valueChanged, this, &PannelloModOno::sldGraduaOno_Change);
    Collega(ui->cmdModOno, &QPushButton::clicked, this, &PannelloModOno::ConfermaChiesta);
    Collega(ui->cmdAnnModOno, &QPushButton::clicked, this, &PannelloModOno::Rinunciato);
    CollegaTasti();
}

PannelloModOno::~PannelloModOno() = default;

/// Space chooses the row that is marked already, as a click on it does.
void PannelloModOno::CollegaTasti()
{
    const auto Scorciatoia = [](QWidget* Dove, Qt::Key Tasto, auto Fai) {
        auto* Comando = new QShortcut(QKeySequence(Tasto), Dove);
        Comando->setContext(Qt::WidgetWithChildrenShortcut);
        Collega(Comando, &QShortcut::activated, Dove, Fai);
    };
    const auto Invia = [this] { (ui->cmdAnnModOno->hasFocus() ? ui->cmdAnnModOno : ui->cmdModOno)->click(); };
    Scorciatoia(this, Qt::Key_Escape, [this] { Q_EMIT Rinunciato(); });
    for (const Qt::Key Invio : {Qt::Key_Return, Qt::Key_Enter})
        Scorciatoia(this, Invio, Invia);
    Scorciatoia(ui->tdbFasceOno, Qt::Key_Space, [this] { tdbFasceOno_Click(); });
}

/// The three rows, all in sight, none cut.
void PannelloModOno::CreaFasce()
{
    constexpr int Aria = 4;
    QListWidget* Elenco = ui->tdbFasceOno;
    const int Altezza = Elenco->fontMetrics().height() + Aria;
    for (int Riga = 0; Riga < NumFasce; ++Riga)
        (new QListWidgetItem(Elenco))->setSizeHint({0, Altezza});
    Elenco->setFixedHeight(Altezza * NumFasce + 2 * Elenco->frameWidth());
}

void PannelloModOno::Apri(std::optional<int> Corrente)
{
    Stato.Decimali = Nota.Tariffa->Decimali;
    ApriModOno(Stato, Righe, Corrente);
    Mostra();
}

void PannelloModOno::Chiudi()
{
    ChiudiModOno(Stato);
    Mostra();
}

void PannelloModOno::SeguiRiga(std::optional<int> Corrente)
{
    SeguiRigaModOno(Stato, Righe, Corrente);
    Mostra();
}

void PannelloModOno::Ricarica()
{
    RicaricaModOno(Stato, Righe);
    Mostra();
}

void PannelloModOno::Rinfresca(std::optional<int> Corrente)
{
    RinfrescaModOno(Stato, Righe, Corrente);
    Mostra();
}

bool PannelloModOno::Conferma()
{
    return ConfermaModOno(Stato, Righe);
}

void PannelloModOno::optModAll_Click(bool Tutti)
{
    ScegliModAll(Stato, Righe, Tutti);
    Mostra();
}

void PannelloModOno::tdbFasceOno_Click()
{
    const QList<QListWidgetItem*> Scelte = ui->tdbFasceOno->selectedItems();
    if (Scelte.isEmpty())
        return;
    ScegliFascia(Stato, ui->tdbFasceOno->row(Scelte.first()));
    Mostra();
}

/// A step by keys leads on, wherever the amounts put the slider back.
void PannelloModOno::sldGraduaOno_Action(int Azione)
{
    QSlider* Cursore = ui->sldGraduaOno;
    const bool Passo =
        Azione >= QAbstractSlider::SliderSingleStepAdd && Azione <= QAbstractSlider::SliderPageStepSub;
    if (Passo && Cursore->sliderPosition() != Cursore->value())
        Cursore->setSliderPosition(PassoGradua(Stato, Cursore->value(), Cursore->sliderPosition()));
}

void PannelloModOno::sldGraduaOno_Change(int Posizione)
{
    SpostaGradua(Stato, Posizione);
    Mostra();
}

/// Where there is no room for all of it, what goes is the name of the line, which stands beside it in the
/// grid: the amounts would lie over each other.
void PannelloModOno::resizeEvent(QResizeEvent* Evento)
{
    QFrame::resizeEvent(Evento);
    QLabel* Titolo = ui->lblOnoDesc;
    const int Suo = Titolo->heightForWidth(contentsRect().width()) + layout()->spacing();
    const int Serve = layout()->minimumSize().height() + (Titolo->isHidden() ? Suo : 0);
    Titolo->setHidden(height() < Serve);
}

/// As wide as the longest of its rows with the amounts of a large note; wider for larger ones, since an
/// amount that is cut would be another.
int PannelloModOno::LarghezzaChiesta() const
{
    constexpr int Cornici = 48;
    const QFontMetrics Misure = ui->tdbFasceOno->fontMetrics();
    int Larghezza = Misure.horizontalAdvance(u"MASSIMI  (Tot.: 999.999.999,99)"_s);
    for (const QString& Riga : Stato.RigheFasce)
        Larghezza = std::max(Larghezza, Misure.horizontalAdvance(Riga));
    const int Importo = ui->lblImp->sizeHint().width() + ui->lblImpOno->sizeHint().width();
    return std::max(Larghezza, Importo) + Cornici;
}

void PannelloModOno::MostraFasce()
{
    QListWidget* Elenco = ui->tdbFasceOno;
    const QSignalBlocker Zitto(Elenco);
    for (int Riga = 0; Riga < Stato.RigheFasce.size(); ++Riga)
        Elenco->item(Riga)->setText(Stato.RigheFasce[Riga]);
    if (Stato.Evidenziata == NessunaFascia)
        Elenco->clearSelection();
    else
        Elenco->setCurrentRow(Stato.Evidenziata, QItemSelectionModel::ClearAndSelect);
}

/// The slider keeps its place where the amount is none of its own: words say what it cannot.
void PannelloModOno::MostraAvviso()
{
    const QString Avviso = AvvisoGradua(Stato);
    QPalette Colori = ui->lblAvvisoGradua->palette();
    Colori.setColor(QPalette::WindowText, aspetto::Sbagliato());
    ui->lblAvvisoGradua->setPalette(Colori);
    ui->lblAvvisoGradua->setText(Avviso);
    ui->lblAvvisoGradua->setVisible(!Avviso.isEmpty());
    ui->sldGraduaOno->setAccessibleDescription(Avviso);
}

void PannelloModOno::Mostra()
{
    setVisible(Stato.Aperto);
    if (Stato.Aperto) {
        ui->lblOnoDesc->setText(Stato.OnoDesc);
        ui->lblImp->setText(Stato.Imp);
        ui->lblImpOno->setText(Stato.ImpOno);
        setFixedWidth(LarghezzaChiesta());
        (Stato.Tutti ? ui->optModAll_1 : ui->optModAll_0)->setChecked(true);
        MostraFasce();
        const QSignalBlocker Zitto(ui->sldGraduaOno);
        ui->sldGraduaOno->setValue(Stato.Gradua);
        ui->cmdModOno->setEnabled(Stato.Confermabile);
        MostraAvviso();
    }
    Q_EMIT Mostrato(Stato.Aperto);
}

#include "moc_PannelloModOno.cpp"
