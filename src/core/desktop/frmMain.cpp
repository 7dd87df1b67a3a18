#include "core/desktop/frmMain.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/modAvvio.h"
#include "core/modErrori.h"
#include "core/posti.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/system/impostazioni.h"
#include "platform/system/percorsi.h"

#include "ui_frmMain.h"

#include <QCloseEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <QStyle>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// Sizes of the frame in twips, when none is stored.
constexpr int LarghezzaPredefinita = 13400;
constexpr int AltezzaPredefinita = 10600;

/// A button of the toolbar; a separator stands where the group changes.
struct Pulsante
{
    QStringView Chiave;
    QStringView Suggerimento;
    QStringView Parola;  ///< under the picture
    int Gruppo;
    QStringView Tasti;  ///< the keys that press it, where no procedure of the frame has them
};

enum GruppoBarra { Parcelle, Archivi, Calcoli, Aiuti, Opzioni, Guida };

constexpr std::array Pulsanti{
    Pulsante{u"new", u"Nuova parcella", u"Nuova", Parcelle, u""},
    Pulsante{u"open", u"Apri parcella", u"Apri", Parcelle, u""},
    Pulsante{u"save", u"Salva parcella", u"Salva", Parcelle, u""},
    Pulsante{u"lock", u"Proteggi parcella", u"Proteggi", Parcelle, u"Ctrl+Shift+L"},
    Pulsante{u"clienti", u"Rubrica clienti e controparti", u"Rubrica", Archivi, u""},
    Pulsante{u"contrib", u"Calcolo contributo unificato", u"Contributo", Calcoli, u""},
    Pulsante{u"inter", u"Calcolo interessi legali e comm.li", u"Interessi", Calcoli, u""},
    Pulsante{u"istat", u"Rivalutazione istat", u"Istat", Calcoli, u""},
    Pulsante{u"termini", u"Calcolo dei termini", u"Termini", Calcoli, u""},
    Pulsante{u"sequenz", u"Calcolo dei termini sequenziali", u"Sequenze", Calcoli, u""},
    Pulsante{u"guida", u"Guida giuridica alle funzioni del quadro", u"Guida", Aiuti, u"Shift+F1"},
    Pulsante{u"docum", u"Documentazione normativa", u"Norme", Aiuti, u"Ctrl+Shift+D"},
    Pulsante{u"setup", u"Impostazioni programma", u"Opzioni", Opzioni, u""},
    Pulsante{u"help", u"Guida in linea", u"Aiuto", Guida, u""},
};

/// An entry of a button's menu.
struct VoceMenu
{
    QStringView Pulsante;
    QStringView Chiave;
    QStringView Testo;
};

constexpr std::array Menu{
    VoceMenu{u"open", u"openpar", u"Apri da parcelle salvate"},
    VoceMenu{u"open", u"openmod", u"Apri da modelli"},
    VoceMenu{u"help", u"help", u"Guida all'uso"},
    VoceMenu{u"help", u"assistenza", u"Assistenza tecnica"},
    VoceMenu{u"help", u"about", u"Informazioni su.."},
};

/// A command that the frame gives by itself, with no target window, and its keys.
struct Procedura
{
    QStringView Comando;
    QStringView Tasti;
};

constexpr std::array Procedure{
    Procedura{u"new", u"Ctrl+N"},
    Procedura{u"openmod", u"Ctrl+Shift+O"},
    Procedura{u"openpar", u"Ctrl+O"},
    Procedura{u"clienti", u"Ctrl+Shift+R"},
    Procedura{u"contrib", u"Ctrl+Shift+C"},
    Procedura{u"setup", u"Ctrl+Shift+P"},
    Procedura{u"termini", u"Ctrl+Shift+T"},
    Procedura{u"inter", u"Ctrl+Shift+I"},
    Procedura{u"istat", u"Ctrl+Shift+V"},
    Procedura{u"codfis", u"Ctrl+Shift+F"},
    Procedura{u"upgrade", u""},
    Procedura{u"tassi", u""},
    Procedura{u"help", u"F1"},
    Procedura{u"recupera", u""},
    Procedura{u"assistenza", u""},
    Procedura{u"about", u""},
    Procedura{u"off", u"Ctrl+Q"},
    Procedura{u"sequenz", u"Ctrl+Shift+S"},
};

int Misura(const QString& Chiave, int PredefinitaTwip)
{
    bool Letta = false;
    const int Twip =
        GetSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave).toInt(&Letta);
    return aspetto::Pixel(Letta && Twip > 0 ? Twip : PredefinitaTwip);
}

QKeySequence Sequenza(QStringView Tasti)
{
    return QKeySequence(Tasti.toString(), QKeySequence::PortableText);
}

}  // namespace

frmMain::frmMain() : ui(std::make_unique<Ui::frmMain>())
{
    ui->setupUi(this);
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
    int Gruppo = Pulsanti.front().Gruppo;
    for (const Pulsante& Uno : Pulsanti) {
        if (Uno.Gruppo != Gruppo)
            ui->barParcelle->addSeparator();
        Gruppo = Uno.Gruppo;
        const QString Chiave = Uno.Chiave.toString();
        QAction* Azione = ui->barParcelle->addAction(aspetto::Icona(Chiave), Uno.Parola.toString());
        Azione->setToolTip(Uno.Suggerimento.toString());
        Azione->setShortcut(Sequenza(Uno.Tasti));
        CreaMenu(Azione, Chiave);
        Collega(Azione, &QAction::triggered, this, [this, Chiave] { barParcelle_ButtonClick(Chiave); });
        QWidget* Tasto = ui->barParcelle->widgetForAction(Azione);
        Tasto->setObjectName(u"barParcelle_"_s + Chiave);
        Tasto->setAccessibleName(Uno.Suggerimento.toString());
    }
}

void frmMain::CreaMenu(QAction* Pulsante, const QString& Chiave)
{
    QMenu* Tendina = nullptr;
    for (const VoceMenu& Voce : ::Menu) {
        if (Voce.Pulsante != Chiave)
            continue;
        if (!Tendina)
            Tendina = new QMenu(this);
        const QString Comando = Voce.Chiave.toString();
        QAction* Azione = Tendina->addAction(Voce.Testo.toString());
        Azione->setObjectName(u"menu_"_s + Comando);
        Collega(Azione, &QAction::triggered, this, [this, Comando] { barParcelle_ButtonMenuClick(Comando); });
    }
    if (!Tendina)
        return;
    Pulsante->setMenu(Tendina);
    auto* Tasto = qobject_cast<QToolButton*>(ui->barParcelle->widgetForAction(Pulsante));
    Tasto->setPopupMode(QToolButton::MenuButtonPopup);
}

void frmMain::CreaProcedure()
{
    for (const Procedura& Una : Procedure) {
        const QString Comando = Una.Comando.toString();
        auto* Azione = new QAction(this);
        Azione->setObjectName(u"comando_"_s + Comando);
        Azione->setShortcut(Sequenza(Una.Tasti));
        addAction(Azione);
        Collega(Azione, &QAction::triggered, this, [Comando] {
            if (ConcludiCampo())
                EseguiComando(Comando, 0, {});
        });
    }
    // Its keys stay where the buttons are hidden: whoever can write in a note can save it.
    auto* Salva = new QAction(this);
    Salva->setObjectName(u"comando_save"_s);
    Salva->setShortcut(Sequenza(u"Ctrl+S"));
    ui->areaParcelle->addAction(Salva);
    Collega(Salva, &QAction::triggered, this, [this] { barParcelle_ButtonClick(u"save"_s); });
}

QMdiArea* frmMain::Area()
{
    if (!isVisible())
        Form_Load();
    // It may lie minimised, or behind the desktop that a note was just asked of.
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    return ui->areaParcelle;
}

void frmMain::Form_Load()
{
    for (QAction* Azione : ui->barParcelle->actions())
        Azione->setVisible(!sessione::ModoLow);
    ui->barParcelle->setVisible(!sessione::ModoLow);  // an empty strip would be left of it
    for (QAction* Azione : actions())
        Azione->setEnabled(!sessione::ModoLow);
    const int Titolo = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect Schermo = screen()->availableGeometry().adjusted(0, Titolo, 0, 0);
    QRect Posto(
        {}, QSize(Misura(u"MainWidth"_s, LarghezzaPredefinita), Misura(u"MainHeight"_s, AltezzaPredefinita))
                .boundedTo(Schermo.size()));
    Posto.moveCenter(Schermo.center());
    setGeometry(Posto);
    const QString Immagine = TrovaFile(sessione::PercorsoProg + Barra(u"sfondi"_s) + sessione::SfondoDesktop);
    BackImage(EsisteFile(Immagine) ? QPixmap(Immagine) : QPixmap());
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
    Riscala();
}

void frmMain::changeEvent(QEvent* Evento)
{
    QMainWindow::changeEvent(Evento);
    if (Evento->type() == QEvent::PaletteChange)
        Riscala();
}

void frmMain::ShowGuida(const QString& Nome)
{
    if (Aperture.PaginaWeb)
        Aperture.PaginaWeb(sessione::PercorsoProg + Barra(u"note"_s) + Nome, u"VDM - Guida giuridica"_s);
}

void frmMain::SalvaMisure() const
{
    const QSize Misura = normalGeometry().isValid() ? normalGeometry().size() : size();
    const auto Salva = [](const QString& Chiave, int Pixel) {
        SaveSetting(NomeApplicazione.toString(), SezioneParametri.toString(), Chiave,
                    QString::number(aspetto::Twip(Pixel)));
    };
    Salva(u"MainHeight"_s, Misura.height());
    Salva(u"MainWidth"_s, Misura.width());
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
        },
        Qt::QueuedConnection);
}

void frmMain::AllaScelta(QMdiSubWindow* Finestra)
{
    // None is active while another program is: the target stays.
    if (Finestra)
        Bersaglio = Finestra->property("Tag").toString();
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
    barParcelle_ButtonClick(Chiave);
}

void frmMain::closeEvent(QCloseEvent* Evento)
{
    // The frame goes by the road of the last note, which hides it once its children are closed.
    Evento->ignore();
    if (!ConcludiCampo())
        return;
    if (!ParcellaAperta()) {
        if (Aperture.UltimaParcellaChiusa)
            Aperture.UltimaParcellaChiusa();
        return;
    }
    for (int i = 1; i <= UltimaParcella(); ++i) {
        if (InfoParcelle[size_t(i)].Libera || !Aperture.ChiudiParcella)
            continue;
        // The note of a matter ends the process by itself, whatever else is open.
        if (!Aperture.ChiudiParcella(i) || !sessione::RichiestaPV2.ID.isEmpty())
            return;
    }
}
