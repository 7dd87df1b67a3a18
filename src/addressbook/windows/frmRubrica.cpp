// The browser of the address book: controls, keys, opening.
#include "addressbook/windows/frmRubrica.h"

#include "addressbook/chiavi.h"
#include "addressbook/windows/frmRicerche.h"
#include "addressbook/windows/frmScheda.h"
#include "core/aperture.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/barra.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/suggerimento.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "addressbook/windows/ui_frmRubrica.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QTableView>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// A button of the toolbar.
struct TastoRubrica
{
    QStringView Chiave;
    QStringView Icona;
    QStringView Scritta;
    QStringView Suggerimento;
    int Tasti;  ///< 0: the grid or the system tells of its key
};

constexpr int Invio = 0;
constexpr std::array TastiRubrica{
    TastoRubrica{u"selez", u"select", u"Seleziona", u"Sceglie il nominativo per la parcella (Invio)", Invio},
    TastoRubrica{u"new", u"new", u"Nuovo", u"Inserisce un nominativo (Ins)", Qt::Key_Insert},
    TastoRubrica{u"edit", u"rename", u"Modifica", u"Modifica il nominativo (F2)", Qt::Key_F2},
    TastoRubrica{u"view", u"view", u"Visualizza", u"Mostra la scheda del nominativo (doppio clic)", Invio},
    TastoRubrica{u"delete", u"delete", u"Elimina", u"Elimina il nominativo (Canc)", Qt::Key_Delete},
    TastoRubrica{u"search", u"search", u"Cerca", u"Cerca un nominativo per campo (Ctrl+F)",
                 int(Qt::CTRL) | Qt::Key_F},
    TastoRubrica{u"rimetti", u"annulla", u"Rimetti", u"Rimette il nominativo eliminato per ultimo (Ctrl+Z)",
                 int(Qt::CTRL) | Qt::Key_Z},
    TastoRubrica{u"importa", u"importa", u"Importa",
                 u"Importa un archivio, un foglio di calcolo o una rubrica (Ctrl+I)",
                 int(Qt::CTRL) | Qt::Key_I},
    TastoRubrica{u"esporta", u"esporta", u"Esporta",
                 u"Esporta i nominativi mostrati, o quelli selezionati (Ctrl+E)", int(Qt::CTRL) | Qt::Key_E},
};

const QString DiClienti = u"clienti"_s;
const QString DiControparti = u"controparti"_s;

/// The archive of Access that the user was asked about last.
const QString ChiaveOfferta = u"OffertaAccess"_s;

}  // namespace

frmRubrica::frmRubrica() : ui(std::make_unique<Ui::frmRubrica>())
{
    ui->setupUi(this);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
    setWindowIcon(aspetto::Icona(DiClienti));
    datNom = new QLabel;
    datNom->setObjectName(u"datNom"_s);
    lblArchivio = new QLabel;
    lblArchivio->setObjectName(u"lblArchivio"_s);
    lblArchivio->setContentsMargins(aspetto::Bordo - 2, 0, 0, 0);  // under the grid's edge
    ui->barStato->addWidget(lblArchivio, 1);
    ui->barStato->addPermanentWidget(datNom);
    CostruisciBarra();
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
    CollegaControlli();
    CollegaTasti();
    aspetto::RicordaPostoDi(this, u"frmRubrica"_s);
}

frmRubrica::~frmRubrica()
{
    // The card and the search go while what they tell of still has somebody to listen.
    delete Scheda;
    delete Cercatore;
}

// ---- controls -----------------------------------------------------------------------------------

void frmRubrica::CostruisciBarra()
{
    for (const TastoRubrica& Descritto : TastiRubrica) {
        const QString Chiave = Descritto.Chiave.toString();
        QAction* Azione = AggiungiTasto(ui->barRubr, Chiave, Descritto.Suggerimento.toString(),
                                        Descritto.Scritta.toString());
        Azione->setIcon(aspetto::Icona(Descritto.Icona.toString()));
        if (Descritto.Tasti != 0)
            Azione->setShortcut(QKeySequence(Descritto.Tasti));
        Collega(Azione, &QAction::triggered, this, [this, Chiave] { Comando(Chiave); });
    }
}

QAction* frmRubrica::Tasto(const QString& Chiave) const
{
    return ui->barRubr->findChild<QAction*>(Chiave);
}

void frmRubrica::CollegaControlli()
{
    SuggerisciLeggibile(ui->txtFiltro);
    Collega(ui->optArchivio_0, &QAbstractButton::clicked, this, [this] { CambiaArchivio(DiClienti); });
    Collega(ui->optArchivio_1, &QAbstractButton::clicked, this, [this] { CambiaArchivio(DiControparti); });
    ui->panSospeso->ChiaveNuova = [this] { return PrimaChiaveLibera(Archivio, Richiesta.RecordSource); };
    Collega(ui->txtFiltro, &QLineEdit::textChanged, this, [this] { Esegui([this] { Filtra(); }); });
    Griglia* Lista = ui->tdbRubrica;
    Lista->ConsentiComandi(true);
    Lista->LasciaRiga = [this](int) { return Consenti(); };
    Lista->CercaLettere = [this](const QString& Lettere) {
        ui->txtFiltro->setFocus();
        ui->txtFiltro->setText(Lettere);
    };
    Collega(Lista, &Griglia::RigaCambiata, this, [this](int Riga) { GrigliaMossa(Riga); });
    Collega(Lista, &Griglia::DoppioClic, this, [this] { Comando(u"view"_s); });
    Collega(Lista, &Griglia::Invio, this, [this] { Comando(Richiesta.Selezione ? u"selez"_s : u"view"_s); });
    Collega(Lista, &Griglia::ClicTitolo, this, &frmRubrica::tdbRubrica_HeadClick);
    Collega(Lista, &Griglia::Cancella, this, [this] { Comando(u"delete"_s); });
    Collega(Lista, &Griglia::Comando, this, [this](ComandoRighe Quale) {
        if (Quale == ComandoRighe::Copia)
            CopiaRighe(ui->tdbRubrica->Selezione());
    });
    Collega(Lista, &Griglia::MenuContestuale, this, &frmRubrica::ApriMenu);
    Collega(ui->panSospeso, &LineaModifiche::Conclusa, this, [this](bool Scritta) { SchedaChiusa(Scritta); });
    Collega(&Lettura, &QTimer::timeout, this, [this] { LeggiTesti(); });
}

void frmRubrica::CollegaTasti()
{
    ui->txtFiltro->installEventFilter(this);
    ui->tdbRubrica->Vista()->installEventFilter(this);
    const auto Scorciatoia = [this](const QKeySequence& Sequenza, const std::function<void()>& Fai) {
        Collega(new QShortcut(Sequenza, this), &QShortcut::activated, this, Fai);
    };
    Scorciatoia(Qt::Key_F3, [this] { Ripeti(false); });
    Scorciatoia(Qt::SHIFT | Qt::Key_F3, [this] { Ripeti(true); });
    Scorciatoia(Qt::Key_F5, [this] { Esegui([this] { Rileggi(); }); });
}

bool frmRubrica::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() != QEvent::KeyPress)
        return QDialog::eventFilter(Oggetto, Evento);
    const auto& Premuto = *static_cast<QKeyEvent*>(Evento);
    const bool Scende = Premuto.key() == Qt::Key_Down || EInvio(Premuto.key());
    if (Oggetto == ui->txtFiltro && Scende) {
        // Down to the rows that the filter leaves, not to those that it is about to take away.
        Esegui([this] { Filtra(true); });
        if (!FiltroInAttesa())
            ui->tdbRubrica->setFocus(Qt::TabFocusReason);
        return true;
    }
    // Esc empties the filter, also from the grid; the next one closes.
    const bool DallaGriglia = Oggetto == ui->tdbRubrica->Vista() && !ui->tdbRubrica->Selezione().isEmpty();
    if (Premuto.key() == Qt::Key_Escape && !ui->txtFiltro->text().isEmpty() && !DallaGriglia) {
        ui->txtFiltro->clear();
        return true;
    }
    return QDialog::eventFilter(Oggetto, Evento);
}

void frmRubrica::ApriMenu(int Riga, const QPoint& Punto)
{
    if (Riga >= 0 && Riga != ui->tdbRubrica->RigaCorrente().value_or(-1)) {
        // The grid has asked at the press; an edit that is still open means that the user stays on its row.
        if (Righe.EditMode() != 0)
            return;
        ui->tdbRubrica->ImpostaRigaCorrente(Riga);
    }
    auto* Menu = new QMenu(this);
    Menu->setObjectName(u"menuRubrica"_s);
    Menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const TastoRubrica& Descritto : TastiRubrica) {
        const QString Chiave = Descritto.Chiave.toString();
        QAction* Azione = Tasto(Chiave);
        if (!Azione->isVisible())
            continue;
        if (Descritto.Tasti != 0) {
            Menu->addAction(Azione);
            continue;
        }
        // The grid takes the key, or the mouse, itself; the menu names it.
        const bool Prima = Chiave == u"selez"_s || !Richiesta.Selezione;
        QAction* Voce =
            Menu->addAction(Azione->icon(), Azione->text() + (Prima ? u"\tInvio"_s : u"\tDoppio clic"_s));
        Voce->setObjectName(u"menu_"_s + Chiave);
        Voce->setEnabled(Azione->isEnabled());
        Collega(Voce, &QAction::triggered, this, [this, Chiave] { Comando(Chiave); });
    }
    Menu->addSeparator();
    const bool SuRiga = ui->tdbRubrica->RigaCorrente().has_value();
    QAction* Copia = Menu->addAction(aspetto::Icona(u"copia"_s), u"Copia la riga"_s);
    Copia->setObjectName(u"copiaRiga"_s);
    Copia->setEnabled(SuRiga);
    Collega(Copia, &QAction::triggered, this, [this] {
        const QList<int> Scelte = ui->tdbRubrica->Selezione();
        CopiaRighe(Scelte.isEmpty() ? QList{ui->tdbRubrica->RigaCorrente().value_or(-1)} : Scelte);
    });
    const QString Testo = ui->tdbRubrica->Vista()->currentIndex().data().toString();
    QAction* Cella = Menu->addAction(u"Copia il testo della cella"_s);
    Cella->setObjectName(u"copiaTesto"_s);
    Cella->setEnabled(!Testo.isEmpty());
    Collega(Cella, &QAction::triggered, this, [Testo] { QApplication::clipboard()->setText(Testo); });
    Menu->popup(Punto);
}

// ---- opening ------------------------------------------------------------------------------------

bool frmRubrica::Apri(const RichiestaRubrica& Chiesta)
{
    if (isVisible() && !Congeda()) {
        PortaDavanti(this);
        return false;
    }
    const RichiestaRubrica Prima = std::exchange(Richiesta, Chiesta);
    if (!Protetta([this] { ApriTabella(); })) {
        Richiesta = Prima;
        MostraRichiesta();
        return false;
    }
    MostraRichiesta();
    Protetta([this] { VaiAllaRigaLegata(); });
    show();
    // Keyboard and mouse alike: without this, which showing a window takes away, no list is outlined before
    // the first Tab.
    setAttribute(Qt::WA_KeyboardFocusChange);
    PortaDavanti(this);
    ui->tdbRubrica->setFocus();
    AvviaMenu();
    DaOffrire = InAccess;
    if (isActiveWindow())
        OffriConversione();
    return true;
}

/// Caption, switch and buttons for the one who asks.
void frmRubrica::MostraRichiesta()
{
    setWindowTitle(u"Archivio: "_s + Richiesta.RecordSource);
    ui->optArchivio_0->setVisible(!Richiesta.Selezione);
    ui->optArchivio_1->setVisible(!Richiesta.Selezione);
    ui->optArchivio_0->setChecked(Richiesta.RecordSource.compare(DiClienti, Qt::CaseInsensitive) == 0);
    ui->optArchivio_1->setChecked(Richiesta.RecordSource.compare(DiControparti, Qt::CaseInsensitive) == 0);
    Tasto(u"selez"_s)->setVisible(Richiesta.Selezione);
    for (const QString& Chiave : {u"new"_s, u"edit"_s, u"delete"_s, u"rimetti"_s})
        Tasto(Chiave)->setVisible(Richiesta.Modifiche);
    Tasto(u"importa"_s)->setVisible(Richiesta.Modifiche || InAccess);
    ui->tdbRubrica->setToolTip(Richiesta.Selezione
                                   ? u"Invio sceglie il nominativo, doppio clic mostra la sua scheda"_s
                                   : u"Doppio clic per mostrare la scheda"_s);
    Abilita();
}

void frmRubrica::CambiaArchivio(const QString& Tabella)
{
    RichiestaRubrica Altra = Richiesta;
    Altra.RecordSource = Tabella;
    Altra.MenuStart.clear();
    Altra.KeyStart.clear();
    Altra.CampoStart.clear();
    Altra.ID = 0;
    if (Tabella.compare(Richiesta.RecordSource, Qt::CaseInsensitive) != 0 && !Apri(Altra))
        MostraRichiesta();
}

void frmRubrica::VaiAllaRigaLegata()
{
    if (Richiesta.ID <= 0 || !HaColonna(Righe.Campi(), u"ID"_s))
        return;
    Righe.FindFirst(u"ID="_s + QString::number(Richiesta.ID));
    Riallinea();
}

/// The command with which the browser was opened, on its row. It is forgotten in any case, so that it does
/// not run again.
void frmRubrica::AvviaMenu()
{
    const QString Parola = std::exchange(Richiesta.MenuStart, {});
    const QString Criterio = std::exchange(Richiesta.KeyStart, {});
    const QString Campo = std::exchange(Richiesta.CampoStart, {});
    if (Parola.isEmpty())
        return;
    Esegui([&] {
        if (!Criterio.isEmpty()) {
            Righe.FindFirst(Criterio);
            Riallinea();
        }
        if (Criterio.isEmpty() || !Righe.NoMatch())
            Comando(Parola);
        FuocoSulCampo(Campo);
    });
}

/// An archive of Access can be looked at as it is; whoever wants to write in it is asked once whether it
/// shall become one of this program's.
void frmRubrica::OffriConversione()
{
    const QString File = FileRubrica(Richiesta.DataSource);
    if (!std::exchange(DaOffrire, false) || !Aperture.ImportaArchivio || Impostazione(ChiaveOfferta) == File)
        return;
    Esegui([&] {
        SalvaImpostazione(ChiaveOfferta, File);
        if (MsgBox(u"L'archivio %1 è di Access: si può consultare, ma non modificare.\n"
                   "Convertirlo in un archivio del programma? Il file di Access resta com'è."_s.arg(
                       NomeFile(File)),
                   vbYesNo + vbQuestion, TitoloDomanda.toString()) == vbYes)
            Aperture.ImportaArchivio(File);
    });
}

/// The question stands over the browser and not over the window that had the focus before: it waits until the
/// browser has it.
void frmRubrica::changeEvent(QEvent* Evento)
{
    QDialog::changeEvent(Evento);
    if (Evento->type() == QEvent::ActivationChange && isActiveWindow() && DaOffrire)
        QTimer::singleShot(0, this, &frmRubrica::OffriConversione);
}

// ---- closing ------------------------------------------------------------------------------------

bool frmRubrica::Congeda()
{
    if (Scheda && !Scheda->Congeda())
        return false;
    return Consenti();
}

void frmRubrica::LasciaNota()
{
    Richiesta.Selezione = false;
    Richiesta.Indice = 0;
    MostraRichiesta();
    close();
}

void frmRubrica::reject()
{
    if (Congeda())
        QDialog::reject();
    else
        raise();
}

void frmRubrica::showEvent(QShowEvent* Evento)
{
    QDialog::showEvent(Evento);
    // Behind the first look: the letters of a filter come later.
    constexpr int Respiro = 200;
    if (!Evento->spontaneous())
        Lettura.start(Respiro);
}

void frmRubrica::hideEvent(QHideEvent* Evento)
{
    if (!Evento->spontaneous()) {
        Lettura.stop();
        RicordaLarghezze();
    }
    QDialog::hideEvent(Evento);
}

#include "moc_frmRubrica.cpp"
