#include "core/desktop/frmMain.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/desktop/frmStudio.h"
#include "core/desktop/recenti.h"
#include "core/modAspetto.h"
#include "core/modErrori.h"
#include "core/parametri.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "core/tasti.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/barra.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/lettere.h"
#include "platform/kit/singola.h"
#include "platform/kit/tastimostrati.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "core/desktop/ui_frmMain.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <QStyle>
#include <QToolButton>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Sizes of the frame in twips, when none is stored.
constexpr int LarghezzaPredefinita = 13400;
constexpr int AltezzaPredefinita = 10600;

/// An entry of a button's menu.
struct VoceMenu
{
    QStringView Pulsante;
    QStringView Chiave;
    QStringView Testo;
};

constexpr std::array Menu{
    VoceMenu{u"save", u"salva", u"Salva"},
    VoceMenu{u"save", u"salvacome", u"Salva con nome..."},
    VoceMenu{u"save", u"savemod", u"Salva come modello"},
    VoceMenu{u"save", u"duplica", u"Duplica..."},
    VoceMenu{u"open", u"openpar", u"Apri da parcelle salvate"},
    VoceMenu{u"open", u"openmod", u"Apri da modelli"},
    VoceMenu{u"help", u"help", u"Guida all'uso"},
    VoceMenu{u"help", u"tasti", u"Tasti del programma"},
    VoceMenu{u"help", u"assistenza", u"Assistenza tecnica"},
    VoceMenu{u"help", u"about", u"Informazioni su.."},
};

/// Keys that stay where the buttons are hidden: whoever can write in a note can save it.
constexpr std::array<QStringView, 2> SempreInParcella{u"salva", u"savemod"};

QKeySequence Sequenza(QStringView Tasti)
{
    return QKeySequence(Tasti.toString(), QKeySequence::PortableText);
}

/// The keys that do the same as an entry of a menu, wherever they were given to it.
QKeySequence TastiDellaVoce(QStringView Chiave)
{
    for (const QStringView Finestra : {QStringView(u"frmMain"), QStringView(u"cornice"), QStringView()})
        for (const QString& Nome : {Chiave.toString(), u"menu_"_s + Chiave.toString()})
            if (const QString Tasti = TastiDi(Finestra, Nome); !Tasti.isEmpty())
                return Sequenza(Tasti);
    return {};
}

/// What the control of a command does, or why it can do nothing yet.
QString ConImpedimento(const QString& Suggerimento, const QString& Motivo)
{
    return Motivo.isEmpty() ? Suggerimento : Suggerimento + u": "_s + Motivo;
}

}  // namespace

frmMain::frmMain() : ui(std::make_unique<Ui::frmMain>())
{
    ui->setupUi(this);
    Prodotto = windowTitle();
    CreaBarra();
    CreaProcedure();
    Collega(ui->areaParcelle, &QMdiArea::subWindowActivated, this, &frmMain::AllaScelta);
    aspetto::AssegnaNomiAccessibili(this);
}

frmMain::~frmMain()
{
    // The windows inside go after this destructor, each activating the next: by then nobody is left to hear
    // it.
    ui->areaParcelle->disconnect(this);
}

void frmMain::CreaBarra()
{
    constexpr int LatoIcona = 24;
    ui->barParcelle->setIconSize({LatoIcona, LatoIcona});
    // All the words stand in a row at the frame's usual width.
    constexpr double Riduzione = 0.9;
    QFont Carattere = ui->barParcelle->font();
    Carattere.setPointSizeF(QFontInfo(Carattere).pointSizeF() * Riduzione);
    ui->barParcelle->setFont(Carattere);
    const std::vector<const Comando*> Comandi = ComandiDellaBarra();
    int Gruppo = Comandi.front()->Pulsante.Gruppo;
    for (const Comando* Riga : Comandi) {
        if (Riga->Pulsante.Gruppo != Gruppo)
            ui->barParcelle->addSeparator();
        Gruppo = Riga->Pulsante.Gruppo;
        const QString Chiave = Riga->Parola.toString();
        QAction* Azione = AggiungiTasto(ui->barParcelle, Chiave, Riga->Pulsante.Suggerimento.toString(),
                                        Riga->Pulsante.Scritta.toString());
        // Each command has keys of its own: Tab stays among the fields of the note.
        QWidget* Tasto = ui->barParcelle->widgetForAction(Azione);
        Tasto->setFocusPolicy(Qt::NoFocus);
        if (!Riga->Procedura)
            Azione->setShortcut(Sequenza(Riga->Tasti));
        MostraTasti(Tasto, TastiDellaVoce(Chiave == u"open" ? u"openpar" : QStringView(Chiave)));
        CreaMenu(Azione, Chiave);
        Collega(Azione, &QAction::triggered, this, [this, Chiave] { barParcelle_ButtonClick(Chiave); });
    }
}

void frmMain::AbilitaComandi()
{
    for (const Comando* Riga : ComandiDellaBarra()) {
        const auto* Tasto = findChild<QToolButton*>(u"barParcelle_"_s + Riga->Parola.toString());
        const QString Motivo = Impedimento(Riga->Parola);
        Tasto->defaultAction()->setEnabled(Motivo.isEmpty());
        Tasto->defaultAction()->setToolTip(ConImpedimento(Riga->Pulsante.Suggerimento.toString(), Motivo));
    }
    for (const VoceMenu& Voce : ::Menu) {
        auto* Azione = findChild<QAction*>(u"menu_"_s + Voce.Chiave.toString());
        const QString Motivo = Impedimento(Voce.Chiave);
        Azione->setEnabled(Motivo.isEmpty());
        Azione->setToolTip(ConImpedimento(Voce.Testo.toString(), Motivo));
    }
    // Low sessions are for one note: its own keys stay, those of the rest would do what no button may.
    for (QAction* Azione : actions())
        Azione->setEnabled(!sessione::ModoLow && Impedimento(Azione->data().toString()).isEmpty());
}

void frmMain::CreaMenu(QAction* Pulsante, const QString& Chiave)
{
    QMenu* Tendina = nullptr;
    for (const VoceMenu& Voce : ::Menu) {
        if (Voce.Pulsante != Chiave)
            continue;
        if (!Tendina)
            Tendina = new QMenu(this);
        Tendina->setToolTipsVisible(true);
        const QString Comando = Voce.Chiave.toString();
        QAction* Azione = Tendina->addAction(Voce.Testo.toString());
        Azione->setObjectName(u"menu_"_s + Comando);
        MostraTasti(Azione, TastiDellaVoce(Voce.Chiave));
        Collega(Azione, &QAction::triggered, this, [this, Comando] { barParcelle_ButtonMenuClick(Comando); });
    }
    if (!Tendina)
        return;
    if (Chiave == u"open")
        MettiRecenti(Tendina, [] { return ConcludiCampo(); });
    Pulsante->setMenu(Tendina);
    auto* Tasto = qobject_cast<QToolButton*>(ui->barParcelle->widgetForAction(Pulsante));
    Tasto->setPopupMode(QToolButton::MenuButtonPopup);
}

void frmMain::CreaProcedure()
{
    for (const Comando& Riga : Comandi())
        if (Riga.Procedura)
            CreaProcedura(Riga.Parola.toString(), Riga.Tasti);
    CreaProcedura(u"tassi"_s, u"");  // a word of old, which no row of the table knows

    const auto Tasto = [this](const QString& Nome, QStringView Tasti, void (frmMain::*Fai)()) {
        auto* Azione = new QAction(this);
        Azione->setObjectName(Nome);
        Azione->setShortcut(Sequenza(Tasti));
        addAction(Azione);
        Collega(Azione, &QAction::triggered, this, Fai);
    };
    Tasto(u"tastiUscita"_s, TastiDi(u"frmMain", u"tastiUscita"), &frmMain::Esci);
    Tasto(u"tastiDuplica"_s, TastiDi(u"cornice", u"menu_duplica"), &frmMain::Duplica);
    Tasto(u"tastiRecenti"_s, TastiDi(u"frmMain", u"tastiRecenti"), &frmMain::MostraRecenti);

    for (const QStringView Voce : SempreInParcella) {
        const QString Chiave = Voce.toString();
        auto* Azione = new QAction(this);
        Azione->setObjectName(u"comando_"_s + Chiave);
        Azione->setShortcut(TastiDellaVoce(Voce));
        ui->areaParcelle->addAction(Azione);
        Collega(Azione, &QAction::triggered, this, [this, Chiave] { barParcelle_ButtonMenuClick(Chiave); });
    }
}

void frmMain::CreaProcedura(const QString& Parola, QStringView Tasti)
{
    auto* Azione = new QAction(this);
    Azione->setObjectName(u"comando_"_s + Parola);
    Azione->setData(Parola);
    Azione->setShortcut(Sequenza(Tasti));
    addAction(Azione);
    Collega(Azione, &QAction::triggered, this, [Parola] {
        if (ConcludiCampo())
            EseguiComando(Parola, 0, {});
    });
}

QMdiArea* frmMain::Area()
{
    if (!isVisible())
        Form_Load();
    // It may lie minimised, or behind the desktop that a note was just asked of.
    PortaDavanti(this);
    return ui->areaParcelle;
}

void frmMain::Form_Load()
{
    for (QAction* Azione : ui->barParcelle->actions())
        Azione->setVisible(!sessione::ModoLow);
    ui->barParcelle->setVisible(!sessione::ModoLow);  // an empty strip would be left of it
    AbilitaComandi();
    const int Titolo = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect Schermo = screen()->availableGeometry().adjusted(0, Titolo, 0, 0);
    MisuraVoluta = QSize(MisuraTwip(u"MainWidth"_s, LarghezzaPredefinita),
                         MisuraTwip(u"MainHeight"_s, AltezzaPredefinita));
    MisuraData = QSize(aspetto::Pixel(MisuraVoluta.width()), aspetto::Pixel(MisuraVoluta.height()));
    MisuraData = aspetto::CresciutaConLeLettere(MisuraData, MisuraVoluta,
                                                {LarghezzaPredefinita, AltezzaPredefinita}, this)
                     .boundedTo(Schermo.size());
    QRect Posto({}, MisuraData);
    Posto.moveCenter(Schermo.center());
    setGeometry(Posto);
    CaricaSfondo();
}

void frmMain::CaricaSfondo()
{
    // No client area is larger than its screen.
    BackImage(aspetto::LeggiImmagine(FileSfondo(), screen()->size() * devicePixelRatioF()));
}

void frmMain::BackImage(const QPixmap& Immagine)
{
    Sfondo = Immagine;
    Riscala();
}

void frmMain::Riscala()
{
    if (Sfondo.isNull()) {
        // The palette's own shades need not follow its window colour.
        constexpr int Fondo = 125;
        ui->areaParcelle->setBackground(palette().color(QPalette::Window).darker(Fondo));
        return;
    }
    const double Densita = devicePixelRatioF();
    const QSize Misura = (QSizeF(ui->areaParcelle->size()) * Densita).toSize();
    QPixmap Stesa = Sfondo.scaled(Misura, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    Stesa.setDevicePixelRatio(Densita);
    ui->areaParcelle->setBackground(QBrush(Stesa));
}

void frmMain::resizeEvent(QResizeEvent* Evento)
{
    QMainWindow::resizeEvent(Evento);
    // On a low screen the words under the pictures take the room of the lines; hints say them too.
    constexpr int Bassa = 440;
    ui->barParcelle->setToolButtonStyle(height() < Bassa ? Qt::ToolButtonIconOnly
                                                         : Qt::ToolButtonTextUnderIcon);
    Riscala();
}

void frmMain::changeEvent(QEvent* Evento)
{
    QMainWindow::changeEvent(Evento);
    if (Evento->type() == QEvent::PaletteChange)
        Riscala();
    if (Evento->type() == QEvent::WindowStateChange &&
        !static_cast<QWindowStateChangeEvent*>(Evento)->oldState().testFlag(Qt::WindowMaximized) &&
        isMaximized())
        RiempiLaCornice();
}

/// Who maximises the frame wants to see the note larger, not the grey around it.
void frmMain::RiempiLaCornice()
{
    QMdiSubWindow* Davanti = ui->areaParcelle->currentSubWindow();
    if (!Davanti || !Davanti->isVisible() || Davanti->isMaximized() || Davanti->isMinimized())
        return;
    Davanti->showMaximized();
    ui->areaParcelle->setProperty(RiempionoLaCornice, true);
}

void frmMain::ShowGuida(const QString& Nome)
{
    Invoca(Aperture.PaginaWeb, sessione::PercorsoProg + Barra(u"note"_s) + Nome, u"VDM - Guida giuridica"_s);
}

void frmMain::SalvaMisure() const
{
    const QSize Misura = normalGeometry().isValid() ? normalGeometry().size() : size();
    // What a small screen left of the size that was asked for is nobody's choice.
    const auto Lato = [](int Pixel, int Data, int VolutaTwip) {
        return QString::number(Pixel == Data ? VolutaTwip : aspetto::Twip(Pixel));
    };
    RicordaImpostazioni({{u"MainHeight"_s, Lato(Misura.height(), MisuraData.height(), MisuraVoluta.height())},
                         {u"MainWidth"_s, Lato(Misura.width(), MisuraData.width(), MisuraVoluta.width())}});
}

void frmMain::ScaricaInCoda()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (ParcellaAperta())
                return;
            Bersaglio.clear();
            hide();
            setWindowTitle(Prodotto);
        },
        Qt::QueuedConnection);
}

void frmMain::AllaScelta(QMdiSubWindow* Finestra)
{
    // None is active while another program is: the target stays.
    if (!Finestra)
        return;
    Bersaglio = Finestra->property("Tag").toString();
    // Behind the toolkit's own word on a maximised window.
    connect(Finestra, &QWidget::windowTitleChanged, this, &frmMain::NominaParcella,
            Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    NominaParcella();
}

/// The task bar names the note in front. In the form that the toolkit gives to maximised windows, or it would
/// add the name once more.
void frmMain::NominaParcella()
{
    if (const QMdiSubWindow* Davanti = ui->areaParcelle->currentSubWindow())
        setWindowTitle(u"%1 - [%2]"_s.arg(Prodotto, Davanti->windowTitle()));
}

void frmMain::barParcelle_ButtonClick(const QString& Chiave)
{
    if (!ConcludiCampo())
        return;
    const int Finestra = Bersaglio.isEmpty() ? 0 : Bersaglio.toInt();
    int Indice = Finestra;
    if (Chiave == u"new")
        Indice = 0;  // a new note is nobody's partner: only the command for a linked note makes pairs
    else if (Chiave == u"guide" && Aperture.SchedaCorrente)
        Indice = Aperture.SchedaCorrente(Finestra) + 1;
    EseguiComando(Chiave, Indice, {});
}

void frmMain::barParcelle_ButtonMenuClick(const QString& Chiave)
{
    if (Chiave == u"salva")
        SalvaSulPosto();
    else if (Chiave == u"salvacome")
        SalvaConNome();
    else if (Chiave == u"savemod")
        SalvaModello();
    else if (Chiave == u"duplica")
        Duplica();
    else if (Chiave == u"tasti")
        MostraPaginaTasti();
    else
        barParcelle_ButtonClick(Chiave);
}

/// Does something on the note in front, after its open field was left.
template <class Azione>
void frmMain::SuParcella(Azione Fai)
{
    const int Indice = Bersaglio.toInt();
    const bool Aperta = Indice >= 1 && Indice <= UltimaParcella() && !InfoParcelle[size_t(Indice)].Libera;
    if (ConcludiCampo() && Aperta)
        Fai(Indice);
}

void frmMain::SalvaSulPosto()
{
    SuParcella([](int Indice) { Invoca(Aperture.SalvaSulPosto, Indice); });
}

void frmMain::SalvaConNome()
{
    SuParcella([](int Indice) { Invoca(Aperture.SalvaConNome, Indice); });
}

void frmMain::Duplica()
{
    SuParcella([](int Indice) { Invoca(Aperture.DuplicaParcella, Indice); });
}

void frmMain::MostraRecenti()
{
    if (ConcludiCampo())
        MostraMenuRecenti(findChild<QToolButton*>(u"barParcelle_open"_s), [] { return ConcludiCampo(); });
}

void frmMain::SalvaModello()
{
    SuParcella([](int Indice) {
        const auto InStato = [Indice](bool Modificata) {
            return !InfoParcelle[size_t(Indice)].Libera &&
                   InfoParcelle[size_t(Indice)].Modificata == Modificata;
        };
        // The command saves changes alone; a template is made of what is there, changed or not.
        const bool DaSegnare = InStato(false) && Aperture.SegnaModificata;
        if (DaSegnare)
            Aperture.SegnaModificata(Indice, true);
        EseguiComando(u"savemod"_s, Indice, {});
        if (DaSegnare && InStato(true))
            Aperture.SegnaModificata(Indice, false);  // not saved: the note is what it was
    });
}

bool frmMain::ChiudiParcelle()
{
    for (int i = 1; i <= UltimaParcella(); ++i) {
        if (InfoParcelle[size_t(i)].Libera || !Aperture.ChiudiParcella)
            continue;
        // The note of a matter ends the process by itself, whatever else is open.
        if (!Aperture.ChiudiParcella(i) || !sessione::RichiestaPV2.ID.isEmpty())
            return false;
    }
    return true;
}

void frmMain::Esci()
{
    if (!ConcludiCampo() || !ChiudiParcelle())
        return;
    // The desktop ends the process by closing, and keeps its place.
    if (const auto& Studio = SeCaricato<frmStudio>)
        Studio->close();
    else if (!Aperture.ChiudiRubriche || Aperture.ChiudiRubriche())
        Termina();
}

void frmMain::closeEvent(QCloseEvent* Evento)
{
    // The frame goes by the road of the last note, which hides it once its children are closed.
    Evento->ignore();
    if (!ConcludiCampo())
        return;
    if (ParcellaAperta())
        (void)ChiudiParcelle();
    else
        Invoca(Aperture.UltimaParcellaChiusa);
}

#include "moc_frmMain.cpp"
