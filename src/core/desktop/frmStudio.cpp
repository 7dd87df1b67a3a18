#include "core/desktop/frmStudio.h"

#include "core/aperture.h"
#include "core/comandi.h"
#include "core/desktop/frmMain.h"
#include "core/desktop/iconastudio.h"
#include "core/desktop/pannellorecenti.h"
#include "core/desktop/recenti.h"
#include "core/indirizzi.h"
#include "core/modAspetto.h"
#include "core/modErrori.h"
#include "core/modLancio.h"
#include "core/posti.h"
#include "core/schedeimpostazioni.h"
#include "core/sessione.h"
#include "core/tasti.h"
#include "core/versione.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/lettere.h"
#include "platform/kit/servizi_qt.h"
#include "platform/kit/singola.h"
#include "platform/kit/tastimostrati.h"
#include "platform/kit/testobordo.h"
#include "platform/system/file.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include "core/desktop/ui_frmStudio.h"

#include <QCloseEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The sign at the left of the icons: the program's picture and title, the name of the office.
class Insegna : public QWidget
{
public:
    Insegna(double Scala, QWidget* Padre) : QWidget(Padre), Lato(qRound(64 * Scala))
    {
        setObjectName(u"imgBase"_s);
        setGeometry(QRectF(8 * Scala, 12 * Scala, 100 * Scala, 288 * Scala).toRect());
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr int Spazio = 8;
        QPainter Pennello(this);
        QRect Figura(0, 1, Lato, Lato);
        Figura.moveLeft((width() - Lato) / 2);
        windowIcon().paint(&Pennello, Figura);
        QFont Grassetto = font();
        Grassetto.setBold(true);
        // The icons keep their places beside it, however large the letters of the desktop are.
        constexpr int Bordi = 4;
        constexpr int Minimo = 9;
        for (int Alto = QFontInfo(Grassetto).pixelSize();
             Alto > Minimo &&
             QFontMetrics(Grassetto).horizontalAdvance(sessione::TitoloProdotto) > width() - Bordi;)
            Grassetto.setPixelSize(--Alto);
        Pennello.setFont(Grassetto);
        const int RigaTitolo = QFontMetrics(Grassetto).height();
        const QRect Titolo(0, Figura.bottom() + Spazio, width(), RigaTitolo);
        Scrivi(Pennello, Titolo, sessione::TitoloProdotto);
        Pennello.setFont(font());
        Scrivi(Pennello, rect().adjusted(0, Titolo.bottom() + Spazio, 0, 0), sessione::StudioNome);
    }

private:
    static void Scrivi(QPainter& Pennello, const QRect& Dove, const QString& Testo)
    {
        TextBorder(Pennello, Dove, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, Testo,
                   aspetto::DaBgr(sessione::ColoreEtichette), aspetto::DaBgr(sessione::ColoreEtichetteBordo));
    }

    int Lato;  // of the picture
};

/// The settings on a tab; what the desktop was about to do waits until they are closed.
void ApriImpostazioni(impostazioni::Scheda Scheda)
{
    Invoca(Aperture.Impostazioni, Scheda, true);
}

/// The site of who made the program or, without one, what the page of assistance says of them.
void ApriMarchio(const QString& Sito, const QString& Ancora)
{
    if (!Sito.isEmpty())
        ApriUrl(Sito);
    else
        Invoca(Aperture.PaginaWeb, sessione::PercorsoProg + u"assistenza.htm#"_s + Ancora,
               u"Assistenza tecnica"_s);
}

}  // namespace

frmStudio::frmStudio() : ui(std::make_unique<Ui::frmStudio>())
{
    ui->setupUi(this);
    ui->txtTraceError->hide();
    ui->piede->setAutoFillBackground(true);
    ui->areaQuadro->viewport()->setAutoFillBackground(false);
    ui->quadro->setAutoFillBackground(false);
    ui->imgClose->setIcon(aspetto::Icona(u"exit"_s));
    Scala = ScalaDelQuadro(screen()->availableGeometry().size(), aspetto::RapportoDelleLettere(this));
    new Insegna(Scala, ui->quadro);
    CreaIconeFisse();
    Recenti = new PannelloRecenti(this);
    ui->rigaQuadro->addWidget(Recenti);
    ui->cmdApriPiede->setIcon(aspetto::Icona(u"open"_s));
    for (QToolButton* Bottone : {Recenti->cmdApri(), ui->cmdApriPiede})
        CreaApri(Bottone);
    CreaTasti();
    const auto Premuto = &QAbstractButton::clicked;
    Collega(ui->imgClose, Premuto, this, [this] { close(); });
    MostraTasti(ui->cmdTasti, QKeySequence(TastiDi(u"", u"cmdTasti"), QKeySequence::PortableText));
    Collega(ui->cmdTasti, Premuto, this, [] { MostraPaginaTasti(); });
    Collega(ui->imgMarvenna, Premuto, this, [] { ApriMarchio(indirizzi::Editore(), u"editore"_s); });
    Collega(ui->imgQB, Premuto, this, [] { ApriMarchio(indirizzi::Sviluppatore(), u"sviluppo"_s); });
    SfondoDaStendere.setSingleShot(true);
    Collega(&SfondoDaStendere, &QTimer::timeout, this, [this] { StendiSfondo(); });
    aspetto::AssegnaNomiAccessibili(this);
    aspetto::RicordaPostoDi(this, objectName());
    Aperture.MostraTraccia = [Scrivania = QPointer(this)](const QString& Testo) {
        if (Scrivania)
            Scrivania->MostraTracciaDebug(Testo);
    };
    LoadGraph();
    Icone.front()->setFocus(Qt::OtherFocusReason);
    resize(ui->quadro->minimumWidth() + aspetto::Bordo + LarghezzaRecenti(),
           ui->quadro->minimumHeight() + ui->piede->sizeHint().height());
    DisponiRecenti();
}

double frmStudio::ScalaDelQuadro(const QSize& Schermo, double Lettere)
{
    constexpr int Larga = 620;
    constexpr int Alta = 312;
    constexpr int Intorno = 90;  // title and foot
    const double Entra = std::min(double(Schermo.width() - PannelloRecenti::LarghezzaMinima) / Larga,
                                  double(Schermo.height() - Intorno) / Alta);
    return std::clamp(Entra, 1.0, std::max(Lettere, 1.0));
}

frmStudio::~frmStudio()
{
    // The window takes the focus from its icons as it goes, when what they report to is gone already.
    for (const IconaStudio* Icona : Icone)
        Icona->disconnect(this);
}

void frmStudio::Mostra()
{
    PortaDavanti(this);
}

// ---- keys, last notes ---------------------------------------------------------------------------

/// The keys of the frame, for what needs no note.
void frmStudio::CreaTasti()
{
    const auto Tasto = [this](const QString& Nome, const QString& Tasti, auto Fai) {
        auto* Azione = new QAction(this);
        Azione->setObjectName(Nome);
        Azione->setShortcut(QKeySequence(Tasti, QKeySequence::PortableText));
        addAction(Azione);
        Collega(Azione, &QAction::triggered, this, std::move(Fai));
    };
    for (const Comando& Riga : Comandi()) {
        if (Riga.Tasti.isEmpty() || (!Riga.Procedura && Riga.Icona.Posto == 0))
            continue;
        const QString Parola = Riga.Parola.toString();
        Tasto(u"tasti_"_s + Parola, Riga.Tasti.toString(), [this, Parola] {
            if (Impedimento(Parola).isEmpty())
                imgMenu_Click(Parola);
        });
    }
    Tasto(u"tastiRecenti"_s, TastiDi(u"frmMain", u"tastiRecenti"), [this] { MostraRecenti(); });
    // As in the frame: notes that are open are asked about, which the close of the window does not do.
    Tasto(u"tastiUscita"_s, TastiDi(u"frmMain", u"tastiUscita"), [this] {
        if (frmMain* Cornice = SeCaricato<frmMain>)
            Cornice->Esci();
        else
            close();
    });
}

/// The button that opens saved notes, with the ways there are in its menu.
void frmStudio::CreaApri(QToolButton* Bottone)
{
    struct Via
    {
        QStringView Parola;
        QStringView Testo;
    };
    constexpr std::array Vie{Via{u"openpar", u"Apri da parcelle salvate"},
                             Via{u"openmod", u"Apri da modelli"}};
    auto* Tendina = new QMenu(Bottone);
    for (const Via& Una : Vie) {
        const QString Parola = Una.Parola.toString();
        QAction* Voce = Tendina->addAction(Una.Testo.toString());
        MostraTasti(Voce, QKeySequence(TastiDi(u"frmMain", Parola), QKeySequence::PortableText));
        Collega(Voce, &QAction::triggered, this, [this, Parola] { imgMenu_Click(Parola); });
    }
    MettiRecenti(Tendina, nullptr);
    Bottone->setMenu(Tendina);
    MostraTasti(Bottone, QKeySequence(TastiDi(u"frmMain", u"openpar"), QKeySequence::PortableText));
    Collega(Bottone, &QAbstractButton::clicked, this, [this] { imgMenu_Click(u"open"_s); });
}

/// What the strip wants beside the icons: more with larger letters, where the screen has it.
int frmStudio::LarghezzaRecenti() const
{
    constexpr int Fregi = 8;  // what window managers draw at the sides
    const int Piena = qRound(PannelloRecenti::LarghezzaMinima * aspetto::RapportoDelleLettere(this));
    const int Resto =
        screen()->availableGeometry().width() - Fregi - ui->quadro->minimumWidth() - aspetto::Bordo;
    return std::clamp(Resto, PannelloRecenti::LarghezzaMinima, Piena);
}

/// The strip stands beside the icons, below them in a window that is too narrow, and nowhere where there is
/// room for neither; the foot then has its button.
void frmStudio::DisponiRecenti()
{
    const QSize Quadro = ui->quadro->minimumSize();
    const int Alta = height() - ui->piede->sizeHint().height();
    const int Larga = LarghezzaRecenti();
    const bool Accanto = width() >= Quadro.width() + Larga + aspetto::Bordo;
    const bool Sotto = !Accanto && Alta >= Quadro.height() + PannelloRecenti::AltezzaMinima + aspetto::Bordo;
    ui->rigaQuadro->setDirection(Accanto ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    constexpr int PerIcone = 3;
    constexpr int LarghezzaMassima = 420;
    ui->rigaQuadro->setStretch(0, Accanto ? PerIcone : Quadro.height());
    ui->rigaQuadro->setStretch(1, Accanto ? 1 : std::max(Alta - Quadro.height(), 1));
    Recenti->setMaximumWidth(Accanto ? std::max(LarghezzaMassima, Larga + aspetto::Bordo) : QWIDGETSIZE_MAX);
    Recenti->setMinimumWidth((Accanto ? Larga : PannelloRecenti::LarghezzaMinima) + aspetto::Bordo);
    // The room around it is its own, so that the icons keep theirs.
    Recenti->setContentsMargins(Sotto ? aspetto::Bordo : 0, Accanto ? aspetto::Bordo : 0, aspetto::Bordo,
                                aspetto::Bordo);
    Recenti->setVisible(Accanto || Sotto);
    ui->cmdApriPiede->setVisible(!Accanto && !Sotto);
}

void frmStudio::resizeEvent(QResizeEvent* Evento)
{
    QWidget::resizeEvent(Evento);
    DisponiRecenti();
}

/// The keys of the last notes: the strip where it shows some, else the list as a menu.
void frmStudio::MostraRecenti()
{
    Recenti->Aggiorna();
    if (Recenti->isVisible() && Recenti->PrendiFuoco())
        return;
    MostraMenuRecenti(Recenti->isVisible() ? Recenti->cmdApri() : ui->cmdApriPiede, nullptr);
}

// ---- picture ------------------------------------------------------------------------------------

void frmStudio::LoadGraph()
{
    DaRidisegnare = false;
    Sfondo = FileSfondo();
    SfondoSteso = QPixmap();
    if (Dipinta)
        StendiSfondo();  // what is on view changes in one step, without the colour in between
    if (const auto& Cornice = SeCaricato<frmMain>; Cornice && Cornice->isVisible())
        Cornice->CaricaSfondo();

    TogliIconeUtente();
    LoadIconsFromIniFile();
    AdattaQuadro();
    Recenti->Aggiorna();
    DisponiRecenti();

    AbilitaIcone();
    UnSoloCarattere();

    IconaMarcata = 0;  // so that the marks are written anew
    Menu(NessunaIcona);
    ui->lblRelease->setText(u"Release "_s + VersioneProgramma());
    setWindowTitle(sessione::TitoloProdotto);
    update();
}

void frmStudio::AdattaQuadro()
{
    QRect Tutte;
    for (const IconaStudio* Icona : Icone)
        Tutte |= Icona->geometry();
    ui->quadro->setMinimumSize(Tutte.right() + aspetto::Bordo, Tutte.bottom() + aspetto::Bordo);
}

QSize frmStudio::MisuraSfondo() const
{
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

void frmStudio::StendiSfondo()
{
    SfondoDaStendere.stop();
    const QSize Misura = MisuraSfondo();
    if (Sfondo.isEmpty() || SfondoSteso.size() == Misura)
        return;
    SfondoSteso = aspetto::LeggiImmagine(Sfondo, Misura);
    if (SfondoSteso.isNull()) {
        // No picture: the plain colour. It is told once, however often the desktop is drawn anew.
        if (std::exchange(SfondoGuasto, Sfondo) != Sfondo)
            InCodaDopoIlRespiro(this, [File = Sfondo] {
                MsgErrore(u"L'immagine di sfondo %1 non si può leggere."_s.arg(File));
            });
        Sfondo.clear();
    }
    update();
}

void frmStudio::DipingiSfondo()
{
    QPainter Pennello(this);
    if (SfondoSteso.isNull())
        Pennello.fillRect(rect(), aspetto::DaBgr(sessione::ColoreSfondoDesktop));
    else
        Pennello.drawPixmap(rect(), SfondoSteso);
    if (Sfondo.isEmpty() || SfondoSteso.size() == MisuraSfondo() || SfondoDaStendere.isActive())
        return;
    // The window is there before its picture is read. While it is being dragged larger it stretches what it
    // has, and reads the picture now and then.
    constexpr std::chrono::milliseconds Pausa(100);
    SfondoDaStendere.start(SfondoSteso.isNull() ? std::chrono::milliseconds::zero() : Pausa);
}

void frmStudio::paintEvent(QPaintEvent*)
{
    DipingiSfondo();
    // The first activation comes behind the first picture: a message of the start lies over a desktop. Where
    // the system activates the window only after that, its event is the same activation.
    if (!Dipinta) {
        Dipinta = true;
        AttesaDalSistema = !isActiveWindow();
        AttivaInCoda();
    }
}

void frmStudio::MostraTracciaDebug(const QString& Testo)
{
    if (ui->txtTraceError->isHidden()) {
        ui->txtTraceError->show();
        // The icons keep their room.
        const int Prima = height();
        resize(width(),
               std::min(Prima + ui->txtTraceError->maximumHeight(), screen()->availableGeometry().height()));
        PerLaTraccia = height() - Prima;
    }
    ui->txtTraceError->setPlainText(Testo);
    ui->txtTraceError->moveCursor(QTextCursor::End);
    // At once: the trace is read while a long operation holds the events back.
    ui->txtTraceError->repaint();
}

// ---- activation ---------------------------------------------------------------------------------

bool frmStudio::event(QEvent* Evento)
{
    if (Evento->type() == QEvent::WindowDeactivate) {
        Coperta = QApplication::activeModalWidget() != nullptr;
    } else if (Evento->type() == QEvent::WindowActivate) {
        if (!Coperta && Dipinta && !std::exchange(AttesaDalSistema, false))
            AttivaInCoda();
        Coperta = false;
    }
    return QWidget::event(Evento);
}

void frmStudio::SegnaRidisegno()
{
    DaRidisegnare = true;
    // The settings may lie over the desktop without another activation to follow; and icons are not taken
    // away while their own click runs.
    InCodaDopoIlRespiro(this, [this] {
        if (DaRidisegnare && isVisible())
            Protetta([this] { LoadGraph(); });
    });
}

void frmStudio::AttivaInCoda()
{
    // What an activation asks would stand in the middle of a transfer that is on its way.
    InCodaDopoIlRespiro(this, [this] { Protetta([this] { Form_Activate(); }); });
}

void frmStudio::DopoLaPrima()
{
    // Once: the desktop is there and its own questions are answered.
    if (std::exchange(PrimaPassata, true))
        return;
    Invoca(Aperture.OffriRecupero);
    Q_EMIT PrimaAttivazione();
}

void frmStudio::Form_Activate()
{
    // A message shown below takes the activation away and gives it back.
    if (InAttivazione || !isVisible())
        return;
    const QScopedValueRollback Guardia(InAttivazione, true);
    if (sessione::ModoDebug)
        TraceDebug(u"avvio form programma"_s);
    if (DaRidisegnare)
        LoadGraph();
    Menu(NessunaIcona);
    Recenti->Aggiorna();  // a note may have been saved meanwhile
    VerificaPreparazione();
    if (const auto& Cornice = SeCaricato<frmMain>; Cornice && Cornice->isVisible() && !ParcellaAperta())
        Cornice->ScaricaInCoda();
    RicercaAllAvvio();
    if (sessione::ModoDebug)
        TraceDebug(u"fine form programma"_s);
    DopoLaPrima();
}

void frmStudio::VerificaPreparazione()
{
    // The settings may have mended one thing and shown another: both are looked at once more, and each is
    // told once at most.
    bool DettoArchivio = false;
    bool DettoStudio = false;
    for (;;) {
        const bool Archivio = !sessione::PercorsoProg.isEmpty() &&
                              EsisteFile(TrovaFile(sessione::PercorsoProg + u"parcelle.mdb"_s));
        if (!Archivio && !std::exchange(DettoArchivio, true)) {
            MsgErrore(u"Impostare la cartella dell'archivio parcelle!"_s);
            ApriImpostazioni(impostazioni::SchedaSetup);
        } else if (Archivio && sessione::StudioNome.isEmpty() && !std::exchange(DettoStudio, true)) {
            MsgBox(u"Il programma non è stato ancora personalizzato. E' pertanto necessario procedere\n"_s
                   u"all'inserimento dei dati identificativi dello studio."_s,
                   vbInformation, TitoloMessaggio.toString());
            ApriImpostazioni(impostazioni::SchedaDatiStudio);
        } else {
            return;
        }
    }
}

void frmStudio::closeEvent(QCloseEvent* Evento)
{
    if (Aperture.ChiudiRubriche && !Aperture.ChiudiRubriche()) {
        Evento->ignore();
        return;
    }
    // The trace's room is not the user's choice.
    if (!isMaximized())
        resize(width(), height() - std::exchange(PerLaTraccia, 0));
    hide();  // its place is remembered as it goes, and the process ends at once
    Evento->accept();
    Termina();
}

#include "moc_frmStudio.cpp"
