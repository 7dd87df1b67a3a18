#include "update/viewer/frmWeb.h"

#include "core/CIni.h"
#include "core/modErrori.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/kit/annuncio.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/suggerimento.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/orologio.h"
#include "platform/system/permessi.h"

#include "update/viewer/ui_frmWeb.h"

#include <QKeyEvent>
#include <QPrinter>
#include <QScrollBar>
#include <QShortcut>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int LarghezzaGuida = 960;
constexpr int AltezzaGuida = 640;
constexpr int LarghezzaIndice = 264;

/// Only that the file is there counts; what stands in it is never read.
void ScriviMarcatore(const QString& Radice)
{
    const CIni Ini;
    const QString Nome = Radice + u".ini"_s;
    const QString Data = Format(Oggi(), ModelloData);
    if (Ini.WriteINI(Radice, u"letto"_s, Data, Nome, sessione::PercorsoProg) ||
        sessione::UserFolder.isEmpty())
        return;
    CreaCartellaDiUtente(sessione::UserFolder);
    (void)Ini.WriteINI(Radice, u"letto"_s, Data, Nome, sessione::UserFolder);
}

/// A button, its picture and what it says.
struct Aspetto
{
    QToolButton* Ui::frmWeb::*Pulsante;
    QStringView Icona;
    QStringView Suggerimento;
};

constexpr std::array Pulsanti{
    Aspetto{&Ui::frmWeb::cmdIndietro, u"prev", u"Pagina precedente"},
    Aspetto{&Ui::frmWeb::cmdAvanti, u"next", u"Pagina successiva"},
    Aspetto{&Ui::frmWeb::cmdCerca, u"zoom", u"Cerca nella pagina (Ctrl+F)"},
    Aspetto{&Ui::frmWeb::cmdStampa, u"print", u"Stampa la pagina (Ctrl+P)"},
    Aspetto{&Ui::frmWeb::cmdPrecedente, u"up", u"Precedente (Maiusc+F3)"},
    Aspetto{&Ui::frmWeb::cmdSuccessivo, u"down", u"Successivo (F3)"},
};

}  // namespace

frmWeb::frmWeb() : ui(std::make_unique<Ui::frmWeb>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::Window);
    for (const Aspetto& Voce : Pulsanti) {
        QToolButton* Pulsante = ui.get()->*Voce.Pulsante;
        Pulsante->setIcon(aspetto::Icona(Voce.Icona.toString()));
        Pulsante->setToolTip(Voce.Suggerimento.toString());
    }
    SuggerisciLeggibile(ui->txtCerca);
    ui->fraCerca->hide();
    ui->pnlGuida->hide();
    ui->divisione->setCollapsible(1, false);
    ui->divisione->setStretchFactor(1, 1);
    ui->Web1->installEventFilter(this);
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    CollegaComandi();
    CollegaTasti();
}

frmWeb::~frmWeb() = default;

void frmWeb::CollegaComandi()
{
    Collega(ui->cmdIndietro, &QToolButton::clicked, this, &frmWeb::cmdIndietro_Click);
    Collega(ui->cmdAvanti, &QToolButton::clicked, this, &frmWeb::cmdAvanti_Click);
    Collega(ui->cmdCerca, &QToolButton::clicked, this, &frmWeb::cmdCerca_Click);
    Collega(ui->cmdStampa, &QToolButton::clicked, this, &frmWeb::cmdStampa_Click);
    Collega(ui->cmdPrecedente, &QToolButton::clicked, this, [this] { Trova(true); });
    Collega(ui->cmdSuccessivo, &QToolButton::clicked, this, [this] { Trova(false); });
    Collega(ui->txtCerca, &QLineEdit::textEdited, this, &frmWeb::txtCerca_Change);
    Collega(ui->cmdChiudi, &QPushButton::clicked, this, [this] { close(); });
    Collega(ui->Web1, &QTextBrowser::backwardAvailable, this,
            [this](bool Esiste) { ui->cmdIndietro->setEnabled(Esiste); });
    Collega(ui->Web1, &QTextBrowser::forwardAvailable, this,
            [this](bool Esiste) { ui->cmdAvanti->setEnabled(Esiste); });
    Collega(ui->Web1, &QTextBrowser::sourceChanged, this, [this](const QUrl& Pagina) {
        if (!Guida.isEmpty())
            ui->pnlGuida->Segna(Pagina.fileName());
        MostraTitolo();
    });
    Collega(ui->pnlGuida, &PannelloGuida::Chiesta, this, &frmWeb::pnlGuida_Chiesta);
}

void frmWeb::CollegaTasti()
{
    Tasto(QKeySequence::Find, [this] { cmdCerca_Click(); });
    Tasto(QKeySequence::Print, [this] { cmdStampa_Click(); });
    Tasto(QKeySequence::FindNext, [this] { Trova(false); });
    Tasto(QKeySequence::FindPrevious, [this] { Trova(true); });
    Tasto(QKeySequence::Back, [this] { cmdIndietro_Click(); });
    Tasto(QKeySequence::Forward, [this] { cmdAvanti_Click(); });
    Tasto(QKeySequence::ZoomIn, [this] { ui->Web1->Ingrandisci(1); });
    Tasto(QKeySequence::ZoomOut, [this] { ui->Web1->Ingrandisci(-1); });
    Tasto(Qt::CTRL | Qt::Key_0, [this] { ui->Web1->GrandezzaNormale(); });
    Tasto(Qt::CTRL | Qt::SHIFT | Qt::Key_F, [this] {
        if (!Guida.isEmpty())
            ui->pnlGuida->Cerca();
    });
}

void frmWeb::Tasto(const QKeySequence& Quale, std::function<void()> Procedura)
{
    Collega(new QShortcut(Quale, this), &QShortcut::activated, this, std::move(Procedura));
}

void frmWeb::Mostra()
{
    const bool Avviso = !Marcatore.isEmpty();
    if (!Guida.isEmpty())
        ui->pnlGuida->Prepara(Guida);
    // The blank page need not come first: a page of the program is there at once, whole or not at all.
    if (!ui->Web1->Naviga(Indirizzo))
        return;  // the address went to the user's browser
    MostraTitolo();
    ui->chkNoRepeat->setVisible(Avviso);
    ui->pnlGuida->setVisible(!Guida.isEmpty());
    if (isVisible()) {
        // Asked for again from a catalogue, whose keys must not be taken away; the guide is asked for to be
        // read.
        if (Guida.isEmpty()) {
            setWindowState(windowState() & ~Qt::WindowMinimized);
            raise();
        } else {
            PortaDavanti(this);
            ui->Web1->setFocus();
        }
        return;
    }
    ui->Web1->clearHistory();
    ui->Web1->verticalScrollBar()->setValue(0);
    ui->chkNoRepeat->setChecked(false);
    ChiudiRicerca();
    // A notice always comes up at its own size.
    if (Avviso)
        aspetto::RimettiAlPosto(this, objectName() + Marcatore);
    else if (!Guida.isEmpty())
        ApparecchiaGuida();
    else
        aspetto::RicordaPostoDi(this, objectName());
    show();
    // Found before, the anchor stands where it stood at another width.
    ui->Web1->TornaAllAncora();
    PortaDavanti(this);
}

/// A page of the guide is told by its own title, as the task bar shows it.
void frmWeb::MostraTitolo()
{
    const QString Pagina = Guida.isEmpty() ? QString() : ui->Web1->documentTitle();
    setWindowTitle(Pagina.isEmpty() ? Titolo : Titolo + u": "_s + Pagina);
}

void frmWeb::ApparecchiaGuida()
{
    if (!std::exchange(Apparecchiata, true)) {
        resize(LarghezzaGuida, AltezzaGuida);
        ui->divisione->setSizes({LarghezzaIndice, LarghezzaGuida - LarghezzaIndice});
    }
    aspetto::RicordaPostoDi(this, objectName() + u"Guida"_s);
}

void frmWeb::pnlGuida_Chiesta(const QString& Meta, const QString& Cercato)
{
    if (ui->Web1->Naviga(Guida + Meta)) {
        ui->Web1->TornaAllAncora();
        ui->Web1->Evidenzia(Cercato.split(u' ', Qt::SkipEmptyParts));
    }
}

void frmWeb::Aggiorna()
{
    (void)ui->Web1->Naviga(Indirizzo);
}

void frmWeb::done(int Esito)
{
    if (!Marcatore.isEmpty() && ui->chkNoRepeat->isChecked())
        Protetta([this] { ScriviMarcatore(Marcatore); });
    QDialog::done(Esito);
}

void frmWeb::keyPressEvent(QKeyEvent* Evento)
{
    const bool Invio = EInvio(Evento->key());
    if (Evento->key() == Qt::Key_Escape && ui->fraCerca->isVisible())
        ChiudiRicerca();
    else if (Invio && ui->txtCerca->hasFocus())
        Trova(Evento->modifiers().testFlag(Qt::ShiftModifier));
    else
        QDialog::keyPressEvent(Evento);
}

bool frmWeb::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    // A letter typed on a page of the guide begins a search in all of it.
    if (Oggetto == ui->Web1 && Evento->type() == QEvent::KeyPress && !Guida.isEmpty()) {
        const auto* Premuto = static_cast<QKeyEvent*>(Evento);
        const QString Scritto = Premuto->text();
        if (!(Premuto->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) && !Scritto.isEmpty() &&
            Scritto[0].isLetterOrNumber()) {
            ui->pnlGuida->Cerca(Scritto);
            return true;
        }
    }
    return QDialog::eventFilter(Oggetto, Evento);
}

void frmWeb::cmdIndietro_Click()
{
    ui->Web1->backward();
}

void frmWeb::cmdAvanti_Click()
{
    ui->Web1->forward();
}

void frmWeb::cmdCerca_Click()
{
    ui->fraCerca->show();
    ui->txtCerca->setFocus(Qt::ShortcutFocusReason);
    ui->txtCerca->selectAll();
}

void frmWeb::cmdStampa_Click()
{
    QPrinter Stampante(QPrinter::HighResolution);
    Stampante.setDocName(windowTitle());
    if (!DialogoStampante(Stampante))
        return;
    // The toolkit's own printing of a text says nothing where it cannot begin.
    if (Stampante.isValid())
        ui->Web1->Stampa(Stampante);
    if (!Stampante.isValid() || Stampante.printerState() == QPrinter::Error)
        throw Errore(errori::Stampante);
}

void frmWeb::txtCerca_Change()
{
    // The occurrence on view stays while it still fits what is being typed.
    QTextCursor Inizio = ui->Web1->textCursor();
    Inizio.setPosition(Inizio.selectionStart());
    ui->Web1->setTextCursor(Inizio);
    Trova(false);
}

void frmWeb::Trova(bool Indietro)
{
    const QString Cercato = ui->txtCerca->text();
    const bool Trovato = ui->Web1->Cerca(Cercato, Indietro);
    ui->lblCerca->setText(Trovato || Cercato.isEmpty() ? QString() : u"Nessun risultato"_s);
    AnnunciaTesto(this, ui->lblCerca->text());
}

void frmWeb::ChiudiRicerca()
{
    ui->fraCerca->hide();
    ui->lblCerca->clear();
    ui->Web1->setFocus();
}

#include "moc_frmWeb.cpp"
