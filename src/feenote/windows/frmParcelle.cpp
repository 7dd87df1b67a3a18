// Frame of the window: tabs, banner, arrows, status bar.
#include "feenote/windows/frmParcelle.h"

#include "core/comandi.h"
#include "core/posti.h"
#include "feenote/modOnorari.h"
#include "feenote/modParametri.h"
#include "feenote/modTotali.h"
#include "feenote/windows/PannelloCatena.h"
#include "feenote/windows/SchedaAcconti.h"
#include "feenote/windows/SchedaDatiBase.h"
#include "feenote/windows/SchedaOnorari.h"
#include "feenote/windows/SchedaSpese.h"
#include "feenote/windows/SchedaStampa.h"
#include "feenote/windows/finestre.h"
#include "feenote/windows/ui_frmParcelle.h"
#include "platform/base/errore.h"
#include "platform/grid/griglia.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/lettere.h"
#include "platform/system/messaggi.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Adds a page of boxes, which scrolls where a small or magnified screen has no room for all of them.
void AggiungiScorrevole(QTabWidget* Schede, QWidget* Pagina, const QString& Titolo)
{
    auto* Scorrevole = new QScrollArea(Schede);
    Scorrevole->setFrameShape(QFrame::NoFrame);
    Scorrevole->setWidgetResizable(true);
    Scorrevole->setFocusPolicy(Qt::NoFocus);
    Scorrevole->setWidget(Pagina);
    for (QWidget* Sfondo : {Pagina, Scorrevole->viewport()})
        Sfondo->setAutoFillBackground(false);  // that of the tabs shows through
    Schede->addTab(Scorrevole, Titolo);
}

QToolButton* Freccia(QWidget* Padre, const QString& Nome, const QString& Immagine,
                     const QString& Suggerimento)
{
    auto* Bottone = new QToolButton(Padre);
    Bottone->setObjectName(Nome);
    Bottone->setIcon(aspetto::Icona(Immagine));
    Bottone->setToolTip(Suggerimento);
    Bottone->setAutoRaise(true);
    return Bottone;
}

/// Ctrl+Tab and its kin. The other keys with Ctrl belong to the text in edit, and so does Ctrl by itself,
/// which bears its own modifier when it is pressed.
bool VoltaPagina(const QKeyEvent& Tasto)
{
    constexpr std::array Tasti{Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_PageUp, Qt::Key_PageDown};
    return Tasto.modifiers().testFlag(Qt::ControlModifier) &&
           std::find(Tasti.cbegin(), Tasti.cend(), Tasto.key()) != Tasti.cend();
}

/// A list, a tick or an option has no use for Enter, and hands it up: it goes on to the next field, as it
/// does from the boxes. @return true when it did
bool InvioPassa(const QKeyEvent& Tasto)
{
    QWidget* Campo = QApplication::focusWidget();
    const bool Invio = EInvio(Tasto.key());
    const bool Scelta = qobject_cast<const QComboBox*>(Campo) || qobject_cast<const QCheckBox*>(Campo) ||
                        qobject_cast<const QRadioButton*>(Campo);
    if (!Invio || !Scelta || (Tasto.modifiers() & ~Qt::KeypadModifier) != 0)
        return false;
    PassaAvanti(Campo);
    return true;
}

}  // namespace

frmParcelle::frmParcelle(int Indice, QWidget* Padre)
    : QWidget(Padre), Posto(Indice), ui(std::make_unique<Ui::frmParcelle>())
{
    ui->setupUi(this);
    try {
        DirittiValori = ApriDirittiValori(*Nota.Tariffa);
    } catch (const Errore&) {
        // The lists of the same database report what is wrong with it.
    }
    CostruisciSchede();
    StringiSeBasso();
    CollegaCornice();
    CollegaCatena();
    CollegaRicalcolo();
    CollegaAnnulla();
    CollegaStato();
    CollegaCopia();
    CollegaMulti();
    CollegaRubrica();
    RimettiDisposizione();
    aspetto::TitoliInGrassetto(this);
    aspetto::AssegnaMnemonici(this);
    aspetto::AssegnaNomiAccessibili(this);
}

frmParcelle::~frmParcelle()
{
    LasciaPosto(this);
}

int frmParcelle::Scheda() const
{
    return ui->tabParcelle->currentIndex();
}

void frmParcelle::CostruisciSchede()
{
    Base = new SchedaDatiBase(Nota, *this, ui->tabParcelle);
    AggiungiScorrevole(ui->tabParcelle, Base, u"Dati base"_s);
    Onorari = new SchedaOnorari(Nota, Comune, *this, ui->tabParcelle);
    ui->tabParcelle->addTab(Onorari, u"Onorari"_s);
    Spese = new SchedaSpese(Nota, Comune, *this, ui->tabParcelle);
    ui->tabParcelle->addTab(Spese, u"Spese inserite"_s);
    Acconti = new SchedaAcconti(Nota, *this, ui->tabParcelle);
    AggiungiScorrevole(ui->tabParcelle, Acconti, u"Acconti e imposte"_s);
    Stampa = new SchedaStampa(Nota, *this, ui->tabParcelle);
    ui->tabParcelle->addTab(Stampa, u"Stampa"_s);

    auto* Angolo = new QWidget(ui->tabParcelle);
    auto* Riga = new QHBoxLayout(Angolo);
    Riga->setContentsMargins(0, 0, 0, 0);
    Riga->setSpacing(0);
    QToolButton* imgPrev = Freccia(Angolo, u"imgPrev"_s, u"prev"_s, u"Scheda precedente"_s);
    QToolButton* imgNext = Freccia(Angolo, u"imgNext"_s, u"next"_s, u"Scheda successiva"_s);
    Riga->addWidget(imgPrev);
    Riga->addWidget(imgNext);
    ui->tabParcelle->setCornerWidget(Angolo);
    Collega(imgPrev, &QToolButton::clicked, this, &frmParcelle::imgPrev_Click);
    Collega(imgNext, &QToolButton::clicked, this, &frmParcelle::imgNext_Click);
}

/// On a low screen the room between the groups goes to the lines.
void frmParcelle::StringiSeBasso()
{
    constexpr int Basso = 480;
    constexpr int Stretto = aspetto::TraCampi / 2;
    if (screen()->availableGeometry().height() >= Basso * aspetto::RapportoDelleLettere(this))
        return;
    for (QLayout* Colonna :
         {static_cast<QLayout*>(ui->colonna), Onorari->layout(), Spese->layout(), Stampa->layout()}) {
        Colonna->setContentsMargins(Stretto, Stretto, Stretto, Stretto);
        Colonna->setSpacing(std::min(Colonna->spacing(), Stretto));
    }
}

void frmParcelle::CollegaCornice()
{
    ui->pctLock->setPixmap(aspetto::Icona(u"lucchetto"_s).pixmap(16, 16));
    ui->pctSave->setIcon(aspetto::Icona(u"dischetto"_s));
    QSizePolicy PostoFisso = ui->pctSave->sizePolicy();
    PostoFisso.setRetainSizeWhenHidden(true);  // what is below it does not jump at the first change
    ui->pctSave->setSizePolicy(PostoFisso);
    QFont Grande = ui->lblDatiBase->font();
    Grande.setBold(true);
    ui->lblDatiBase->setFont(Grande);
    ui->lblDatiBase->TogliInMezzo();  // scale and value stand at the end
    ui->lblTotal->setFont(Grande);

    // Ctrl+Tab belongs to the frame, which goes from note to note with it.
    for (const auto& [Tasti, Passo] : {std::pair(Qt::Key_PageDown, 1), std::pair(Qt::Key_PageUp, -1)}) {
        auto* Scorciatoia = new QShortcut(QKeySequence(Qt::ControlModifier | Tasti), this);
        Scorciatoia->setContext(Qt::WidgetWithChildrenShortcut);
        Collega(Scorciatoia, &QShortcut::activated, this,
                [this, Passo = Passo] { VaiAllaScheda(Scheda() + Passo); });
    }
    // From another tab the command brings the page up; there it sends it to the printer.
    auto* Stampante = new QShortcut(QKeySequence::Print, this);
    Stampante->setContext(Qt::WidgetWithChildrenShortcut);
    Collega(Stampante, &QShortcut::activated, this, [this] {
        if (!ConcludiCampo())
            return;
        if (Scheda() == SchedaDiStampa)
            Stampa->StampaParcella();
        else
            EseguiComando(u"print"_s, Posto, {});
    });
    // The toolkit scrolls for the Tab key alone. Under the mouse nothing moves: the click would miss.
    Collega(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* Campo) {
        if (Campo && isAncestorOf(Campo) && QGuiApplication::mouseButtons() == Qt::NoButton)
            MettiInVista(Campo);
    });
    ui->tabParcelle->installEventFilter(this);
    LasciaPrima(ui->tabParcelle->tabBar());
    Collega(ui->tabParcelle, &QTabWidget::currentChanged, this,
            [this](int Nuova) { tabParcelle_Change(Nuova); });
    Collega(ui->pctSave, &QToolButton::clicked, this, [this] {
        if (ConcludiCampo())
            EseguiComando(u"savepar"_s, Posto, {});
    });
}

void frmParcelle::CollegaCatena()
{
    ui->pieCatena->Segui([this] {
        return CatenaFiscale(Nota,
                             ETipoStampa(Nota.cmbTipoStampa) ? Nota.cmbTipoStampa : int(StampaPrenotula));
    });
    Collega(ui->pieCatena, &QAbstractButton::clicked, this, [this] { MostraCatena(); });
    Collega(ui->pieCatena, &PiedeCatena::Ricalcolata, this, [this] {
        if (Importi && Importi->isVisible())
            Importi->Mostra(ui->pieCatena->Conti());
    });
    auto* Tasti = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_T), this);
    Tasti->setContext(Qt::WidgetWithChildrenShortcut);
    Collega(Tasti, &QShortcut::activated, this, [this] { MostraCatena(); });
}

void frmParcelle::MostraCatena()
{
    if (!ConcludiCampo())
        return;
    if (!Importi) {
        Importi = new PannelloCatena(this);
        auto* Tasti = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_T), Importi);
        Collega(Tasti, &QShortcut::activated, this, [this] { Importi->reject(); });
    }
    Importi->Mostra(ui->pieCatena->Conti());
    Importi->Alterna(ui->pieCatena);
}

bool frmParcelle::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    switch (Evento->type()) {
    case QEvent::ShortcutOverride:
        // A box whose own letters are all taken back leaves the key to the steps of the note.
        for (const auto& [Tasti, Avanti] :
             {std::pair(QKeySequence::Undo, false), std::pair(QKeySequence::Redo, true)})
            if (static_cast<QKeyEvent*>(Evento)->matches(Tasti) && !TestoHaAnnulla(Oggetto, Avanti)) {
                Evento->ignore();
                return true;
            }
        break;
    case QEvent::KeyPress:
        if (VoltaPagina(*static_cast<QKeyEvent*>(Evento)) && !ConcludiCampo())
            return true;
        if (Oggetto == ui->tabParcelle && InvioPassa(*static_cast<QKeyEvent*>(Evento)))
            return true;
        break;
    default:
        break;
    }
    return QWidget::eventFilter(Oggetto, Evento);
}

/// The parameters are tested when their tab is left; the answer holds until they are seen again.
bool frmParcelle::LasciaBase(int Verso)
{
    if (Verso == SchedaBase)
        return true;
    if (SchedaInVista == SchedaBase) {
        BaseVista = CheckOK(Nota, false);
        Nota.Fuoco = CampoNota::Nessuno;
    }
    return BaseVista;
}

void frmParcelle::TornaAllaBase()
{
    const QScopedValueRollback Guardia(CambioScheda, true);
    ui->tabParcelle->setCurrentIndex(SchedaBase);
    SchedaInVista = SchedaBase;
}

void frmParcelle::MettiInVista(QWidget* Campo)
{
    for (QWidget* Padre = Campo->parentWidget(); Padre && Padre != this; Padre = Padre->parentWidget()) {
        if (auto* Scorre = qobject_cast<QScrollArea*>(Padre)) {
            Scorre->ensureWidgetVisible(Campo);
            // A page is read from its beginning, where the field is seen from there, and so is what is wider
            // than its page.
            const int Da = Campo->mapTo(Scorre->widget(), QPoint()).x();
            const int Largo = Scorre->viewport()->width();
            constexpr int Margine = 4 * aspetto::Bordo;  // frames within frames
            if (Da + Campo->width() <= Largo || Da <= Margine)
                Scorre->horizontalScrollBar()->setValue(0);
            else if (Campo->width() > Largo)
                Scorre->horizontalScrollBar()->setValue(Da);
            return;
        }
    }
}

void frmParcelle::VaiAllaScheda(int Indice)
{
    if (Indice < 0 || Indice >= ui->tabParcelle->count() || !ui->tabParcelle->isTabEnabled(Indice))
        return;
    if (ConcludiCampo())
        ui->tabParcelle->setCurrentIndex(Indice);
}

void frmParcelle::tabParcelle_Change(int Nuova)
{
    if (CambioScheda)
        return;
    if (!LasciaBase(Nuova)) {
        TornaAllaBase();
        (void)CheckOK(Nota, true);  // once more, telling the user why
        MostraTutto();
        return;
    }
    SchedaInVista = Nuova;
    if (Nuova == SchedaDiStampa)
        ControllaMulti();
    if (Nuova == SchedaListaOnorari)
        Onorari->Entra();
    else if (Nuova == SchedaListaSpese)
        Spese->Entra();
    MostraTutto();
    if (Nuova == SchedaDiStampa)
        Stampa->Entra();
}

void frmParcelle::imgPrev_Click()
{
    if (Scheda() > SchedaBase) {
        VaiAllaScheda(Scheda() - 1);
        return;
    }
    if (!ConcludiCampo() || InfoParcelle[size_t(Posto)].Libera)
        return;
    const auto Domanda = [] {
        return MsgBox(u"Confermi il ritorno al menu iniziale?"_s, vbYesNo + vbQuestion,
                      TitoloDomanda.toString());
    };
    if (InDialogo(Domanda) == vbYes)
        ChiudiParcella(Posto);
}

void frmParcelle::imgNext_Click()
{
    const int Ultima = ui->tabParcelle->count() - 1;
    if (Scheda() == Ultima) {
        if (ConcludiCampo())
            EseguiComando(u"savepar"_s, Posto, {});
    } else if (Scheda() + 1 == Ultima && !HaStampa()) {
        if (ConcludiCampo())
            AttivaParcella(Socio());
    } else {
        VaiAllaScheda(Scheda() + 1);
    }
}

void frmParcelle::MostraTutto()
{
    if (InMostra)
        return;
    InMostra = true;
    Base->Mostra();
    Onorari->Mostra();
    Spese->Mostra();
    Acconti->Mostra();
    Stampa->Mostra();
    RefreshDatiBase();
    RefreshGrid();
    MostraSegni();
    MostraAnnulla();
    MostraStato();
    MostraRicalcolo();
    InMostra = false;

    if (QWidget* Casella = Base->CasellaDi(std::exchange(Nota.Fuoco, CampoNota::Nessuno)))
        RidaiFuoco(Casella);
}

void frmParcelle::Ricomponi()
{
    // A page that nobody sees is composed when its tab opens.
    if (Scheda() == SchedaDiStampa)
        Stampa->Ricomponi();
}

void frmParcelle::RefreshDatiBase()
{
    ui->lblDatiBase->MostraForme(TestoDatiBase(Nota), DatiBaseInBreve(Nota));
    ui->lblDatiBase->setToolTip(ui->lblDatiBase->text());
}

void frmParcelle::RefreshGrid()
{
    const PannelliRiep Testi = TestiRiep(Nota);
    ui->lblOnora->setText(Testi.Onora);
    ui->lblSpImp->setText(Testi.SpImp);
    ui->lblSpese->setText(Testi.Spese);
    ui->lblTotal->setText(Testi.Total);
    ui->pieCatena->Cambiata();

    const Somme Sommate = CalcolaSomme(Nota);
    if (Scheda() == SchedaListaOnorari) {
        Onorari->MostraTotali(Sommate);
    } else if (Scheda() == SchedaListaSpese) {
        Spese->MostraTotali(Sommate);
    }
}

void frmParcelle::MostraSegni()
{
    ui->pctLock->setVisible(!Nota.Psw.isEmpty());
    ui->pctSave->setVisible(Nota.Modificata);
}

void frmParcelle::MostraTitolo()
{
    const frmParcelle* Principale = HaStampa() ? nullptr : Parcelle(Socio());
    setWindowTitle(Principale ? u"%1 (multipla di %2)"_s.arg(Titolo(), Principale->Titolo()) : Titolo());
}

void frmParcelle::ImpostaTitolo(const QString& Titolo)
{
    TitoloProprio = Titolo;
    MostraTitolo();
    if (frmParcelle* Compagna = HaStampa() ? Parcelle(Socio()) : nullptr)
        Compagna->MostraTitolo();
}

void frmParcelle::Associa(int Socio)
{
    Nota.IDMultipla = Socio;
    ui->tabParcelle->setTabEnabled(SchedaDiStampa, Nota.IDMultipla == 0);
    MostraTitolo();
    Acconti->MostraMultipla();
}

bool frmParcelle::HaStampa() const
{
    return ui->tabParcelle->isTabEnabled(SchedaDiStampa);
}

#include "moc_frmParcelle.cpp"
