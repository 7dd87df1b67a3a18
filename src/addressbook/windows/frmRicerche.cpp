#include "addressbook/windows/frmRicerche.h"

#include "addressbook/modScheda.h"
#include "core/modErrori.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/system/messaggi.h"
#include "platform/system/shell.h"

#include "addressbook/windows/ui_frmRicerche.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// While the program runs: the field last chosen, by its place in the list, and the texts last searched.
int CampoRicordato = -1;
QStringList TestiRicordati;
constexpr qsizetype QuantiTesti = 10;

}  // namespace

frmRicerche::frmRicerche(QWidget* Parent) : QDialog(Parent), ui(std::make_unique<Ui::frmRicerche>())
{
    ui->setupUi(this);
    setWindowIcon(aspetto::Icona(u"zoom"_s));
    aspetto::AssegnaNomiAccessibili(this);
    QAction* Ultimi = ui->txtValore->addAction(aspetto::Icona(u"down"_s), QLineEdit::TrailingPosition);
    Ultimi->setObjectName(u"ultimi"_s);
    Ultimi->setToolTip(u"Ultimi testi cercati (Freccia giù)"_s);
    for (QToolButton* Bottone : ui->txtValore->findChildren<QToolButton*>())
        Bottone->setAccessibleName(u"Ultimi testi cercati"_s);
    ui->txtValore->installEventFilter(this);
    if (Parent)
        Parent->window()->installEventFilter(this);

    Collega(Ultimi, &QAction::triggered, this, [this] { OffriTesti(); });
    Collega(ui->txtValore, &QLineEdit::textChanged, this, [this] { CheckButton(); });
    Collega(ui->cmbCampo, &QComboBox::activated, this, [this] { cmbCampo_Click(); });
    Collega(ui->cmbOper, &QComboBox::currentIndexChanged, this, [this] { CheckButton(); });
    Collega(ui->cmdFind_0, &QAbstractButton::clicked, this, [this] { cmdFind_Click(0); });
    Collega(ui->cmdFind_1, &QAbstractButton::clicked, this, [this] { cmdFind_Click(1); });
    Collega(ui->cmdExit, &QAbstractButton::clicked, this, [this] { reject(); });
    Collega(new QShortcut(Qt::Key_F3, this), &QShortcut::activated, this, [this] {
        if (ui->cmdFind_1->isEnabled())
            cmdFind_Click(1);
    });
    Collega(new QShortcut(Qt::SHIFT | Qt::Key_F3, this), &QShortcut::activated, this,
            [this] { Ripeti(true); });
    CheckButton();
}

frmRicerche::~frmRicerche() = default;

// ---- fields -------------------------------------------------------------------------------------

void frmRicerche::ImpostaRecordSource(const Recordset& Nuove)
{
    Righe = Nuove;
    Campi = Righe.Campi();
    if (!TrovaCampo(Campi, UltimoCampo))
        UltimoCriterio.clear();
    if (HaTutti(Campi)) {
        CheckButton();
        return;
    }
    ClearArray();
    if (isVisible())
        LoadCampi();
}

bool frmRicerche::HaTutti(const QList<Campo>& Fra) const
{
    return std::ranges::all_of(Elenco,
                               [&Fra](const CampoElencato& Voce) { return TrovaCampo(Fra, Voce.Nome); });
}

void frmRicerche::InitCampi()
{
    Elenco.clear();
    ui->cmbCampo->clear();
    ui->cmbOper->clear();
}

void frmRicerche::ClearArray()
{
    InitCampi();
}

void frmRicerche::AddCampi(const QString& Campo, const QString& Titolo)
{
    Elenco.append({Campo, Titolo});
}

QStringList frmRicerche::NomiCampi() const
{
    QStringList Nomi;
    for (const CampoElencato& Voce : Elenco)
        Nomi.append(Voce.Nome);
    return Nomi;
}

void frmRicerche::LoadCampi()
{
    if (Elenco.isEmpty())
        for (const Campo& Colonna : std::as_const(Campi))
            AddCampi(Colonna.Name, Colonna.Name);
    ui->cmbCampo->clear();
    for (const CampoElencato& Voce : std::as_const(Elenco))
        ui->cmbCampo->addItem(Voce.Titolo);
    const int Scelto = CampoRicordato < 0 ? 0 : CampoRicordato;
    ui->cmbCampo->setCurrentIndex(Scelto < ui->cmbCampo->count() ? Scelto : -1);
    cmbCampo_Click();
}

const Campo* frmRicerche::CampoScelto() const
{
    const int Scelto = ui->cmbCampo->currentIndex();
    return Scelto >= 0 && Scelto < Elenco.size() ? TrovaCampo(Campi, Elenco[Scelto].Nome) : nullptr;
}

void frmRicerche::cmbCampo_Click()
{
    ui->cmbOper->clear();
    if (const Campo* Scelto = CampoScelto()) {
        CampoRicordato = ui->cmbCampo->currentIndex();
        for (int i = 0; i < OperatoriDi(Scelto->Type); ++i)
            ui->cmbOper->addItem(TabellaOperatori.at(size_t(i)).toString());
        ui->cmbOper->setCurrentIndex(UgualeA);
        // The limit is one of typing: a longer text that stands in the box stays.
        ui->txtValore->setMaxLength(std::max(LunghezzaRicerca(*Scelto), int(ui->txtValore->text().size())));
    }
    CheckButton();
}

void frmRicerche::CheckButton()
{
    const bool Muto = SenzaValore(ui->cmbOper->currentIndex());
    const bool Completa =
        Muto || (CampoScelto() && !ui->txtValore->text().isEmpty() && !ui->cmbOper->currentText().isEmpty());
    ui->txtValore->setEnabled(!Muto && CampoScelto());
    ui->cmdFind_0->setEnabled(Completa);
    ui->cmdFind_1->setEnabled(Completa);
}

// ---- showing ------------------------------------------------------------------------------------

void frmRicerche::Apri()
{
    if (isVisible())
        Attiva();
    PortaDavanti(this);
}

void frmRicerche::showEvent(QShowEvent* Evento)
{
    QDialog::showEvent(Evento);
    if (!Evento->spontaneous())
        Attiva();
}

void frmRicerche::Attiva()
{
    if (ui->cmbCampo->count() == 0)
        LoadCampi();
    ui->txtValore->setFocus(Qt::OtherFocusReason);
    ui->txtValore->selectAll();
}

void frmRicerche::hideEvent(QHideEvent* Evento)
{
    QDialog::hideEvent(Evento);
    if (!Evento->spontaneous())
        ClearArray();
}

void frmRicerche::Sospendi(bool Si)
{
    setEnabled(!Si);
}

void frmRicerche::Accosta(const QRect& Occupato)
{
    const QScreen* Schermo = screen();
    if (!Schermo)
        return;
    adjustSize();
    const QRect Libero = Schermo->availableGeometry();
    // What the window manager draws around it is known once it has been on view, and guessed before.
    const QSize Fuori = frameGeometry().size() - size();
    const QSize Mia = size() + (Fuori.isEmpty() ? QSize(8, 36) : Fuori);
    const std::array Posti{
        QPoint(Occupato.right() + 1, Occupato.top()),
        QPoint(Occupato.left() - Mia.width(), Occupato.top()),
        QPoint(Occupato.left(), Occupato.bottom() + 1),
        QPoint(Occupato.left(), Occupato.top() - Mia.height()),
    };
    const auto Buono =
        std::ranges::find_if(Posti, [&](const QPoint& Posto) { return Libero.contains(QRect(Posto, Mia)); });
    // With no room around it the lower right corner hides the least: rows are found in the middle.
    move(Buono != Posti.end() ? *Buono : Libero.bottomRight() - QPoint(Mia.width() - 1, Mia.height() - 1));
}

void frmRicerche::Scopri(const QRect& Trovata)
{
    const QRect Mia = frameGeometry();
    const QScreen* Schermo = screen();
    if (!isVisible() || !Schermo || !Mia.intersects(Trovata))
        return;
    const QRect Libero = Schermo->availableGeometry();
    const int Sotto = Trovata.bottom() + 1;
    const int Sopra = Trovata.top() - Mia.height();
    if (Sotto + Mia.height() - 1 <= Libero.bottom())
        move(Mia.left(), Sotto);
    else if (Sopra >= Libero.top())
        move(Mia.left(), Sopra);
}

// ---- keys ---------------------------------------------------------------------------------------

bool frmRicerche::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() == QEvent::Hide && Oggetto != ui->txtValore && !Evento->spontaneous())
        hide();  // the browser has closed
    if (Oggetto != ui->txtValore || Evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(Oggetto, Evento);
    const auto& Tasto = *static_cast<QKeyEvent*>(Evento);
    if (Tasto.key() == Qt::Key_Down) {
        OffriTesti();
        return true;
    }
    const QString Testo = Tasto.text();
    const Campo* Scelto = CampoScelto();
    return Scelto && Testo.size() == 1 && Testo[0].isPrint() && !TastoRicerca(Scelto->Type, Testo[0]);
}

/// The texts last searched, in a list under the box.
void frmRicerche::OffriTesti()
{
    if (TestiRicordati.isEmpty() || !ui->txtValore->isEnabled())
        return;
    auto* Tendina = new QMenu(this);
    Tendina->setObjectName(u"tendinaTesti"_s);
    Tendina->setAttribute(Qt::WA_DeleteOnClose);
    Tendina->setMinimumWidth(ui->txtValore->width());
    for (const QString& Testo : std::as_const(TestiRicordati)) {
        QString Scritta = Testo;
        Collega(Tendina->addAction(Scritta.replace(u'&', u"&&"_s)), &QAction::triggered, this,
                [this, Testo] { ui->txtValore->setText(Testo); });
    }
    Tendina->setActiveAction(Tendina->actions().first());
    Tendina->popup(ui->txtValore->mapToGlobal(QPoint(0, ui->txtValore->height())));
}

void frmRicerche::RicordaTesto()
{
    const QString Testo = ui->txtValore->text();
    TestiRicordati.removeAll(Testo);
    TestiRicordati.prepend(Testo);
    if (TestiRicordati.size() > QuantiTesti)
        TestiRicordati.removeLast();
}

// ---- searching ----------------------------------------------------------------------------------

void frmRicerche::cmdFind_Click(int Indice)
{
    const Campo* Scelto = CampoScelto();
    if (!Scelto)
        return;
    const int Operatore = ui->cmbOper->currentIndex();
    if (!SenzaValore(Operatore))
        RicordaTesto();
    UltimoCampo = Scelto->Name;
    UltimoCriterio = CriterioRicerca(*Scelto, Operatore, ui->txtValore->text());
    Cerca(Indice == 0 ? PassoRicerca::Primo : PassoRicerca::Successivo);
}

void frmRicerche::Ripeti(bool Indietro)
{
    if (PuoRipetere())
        Cerca(Indietro ? PassoRicerca::Precedente : PassoRicerca::Successivo);
    else
        Apri();
}

void frmRicerche::Cerca(PassoRicerca Passo)
{
    if (PrimaDiMuovere && !PrimaDiMuovere())
        return;
    bool Esito = false;
    const bool Riuscita = Protetta([&] {
        const ClessidraAccesa Attesa;
        Esito = CercaRiga(Righe, UltimoCriterio, Passo);
    });
    if (!Riuscita)
        return;
    if (!Esito) {
        MsgBox(u"Non ho trovato nessun altro elemento che soddisfi i criteri impostati!"_s, vbInformation,
               TitoloMessaggio.toString());
        return;
    }
    Campanello();
    Q_EMIT Trovata();
}

#include "moc_frmRicerche.cpp"
