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
#include "core/modIcone.h"
#include "core/modLancio.h"
#include "core/posti.h"
#include "core/sessione.h"
#include "core/tasti.h"
#include "core/versione.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
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
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString PrefissoUtente = u"user"_s;

/// Three rows of five, in the columns of the user's icons, which follow below them.
QPoint PostoFisso(int Indice)
{
    constexpr int PerRiga = 5;
    constexpr int Alto = 12;
    constexpr int Passo = 100;
    return {PostoIcona(0).x() + Indice % PerRiga * Passo, Alto + Indice / PerRiga * Passo};
}

/// The sign at the left of the icons: the program's picture and title, the name of the office.
class Insegna : public QWidget
{
public:
    explicit Insegna(QWidget* Padre) : QWidget(Padre)
    {
        constexpr QRect Posto(8, 12, 100, 288);
        setObjectName(u"imgBase"_s);
        setGeometry(Posto);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr int LatoFigura = 64;
        constexpr int Spazio = 8;
        QPainter Pennello(this);
        QRect Figura(0, 1, LatoFigura, LatoFigura);
        Figura.moveLeft((width() - LatoFigura) / 2);
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
};

bool DiUtente(const IconaStudio* Icona)
{
    return Icona->Tag().startsWith(PrefissoUtente);
}

/// Opens the target of a user's icon; nothing for a row that is gone.
void ApriCollegamento(int Riga)
{
    if (Riga >= 0 && Riga < IconeUtente.Righe())
        ApriDestinazione(IconeUtente(Riga, IconaCollegamento).toString());
}

/// How far an icon lies in the direction of an arrow; infinite when it lies elsewhere.
double Distanza(const QPoint& Da, const QPoint& A, int Tasto)
{
    const QPoint Via = A - Da;
    const bool Orizzontale = Tasto == Qt::Key_Left || Tasto == Qt::Key_Right;
    const int Avanti =
        (Orizzontale ? Via.x() : Via.y()) * (Tasto == Qt::Key_Left || Tasto == Qt::Key_Up ? -1 : 1);
    const int Lato = std::abs(Orizzontale ? Via.y() : Via.x());
    // Rows are a hundred pixels apart and a few off each other's columns.
    constexpr int StessaFila = 40;
    if (Avanti < StessaFila || (Orizzontale && Lato > StessaFila))
        return std::numeric_limits<double>::infinity();
    constexpr double PesoLato = 0.5;
    return Avanti + PesoLato * Lato;
}

// Tabs of the settings.
constexpr int SchedaDatiStudio = 0;
constexpr int SchedaSetup = 2;

/// The settings on a tab; what the desktop was about to do waits until they are closed.
void ApriImpostazioni(int Scheda)
{
    if (Aperture.Impostazioni)
        Aperture.Impostazioni(Scheda, true);
}

/// The menu of a user's icon; the settings do what it offers.
void MenuIcona(const QPoint& Dove, int Riga)
{
    if (!Aperture.IconaPersonale)
        return;
    QMenu Tendina;
    Tendina.setObjectName(u"menuIcona"_s);
    const QAction* Modifica = Tendina.addAction(u"Modifica..."_s);
    const QAction* Elimina = Tendina.addAction(u"Elimina..."_s);
    const QAction* Scelta = Tendina.exec(Dove);
    if (Scelta == Modifica || Scelta == Elimina)
        Aperture.IconaPersonale(Riga, Scelta == Elimina);
}

/// The site of who made the program or, without one, what the page of assistance says of them.
void ApriMarchio(const QString& Sito, const QString& Ancora)
{
    if (!Sito.isEmpty())
        ApriUrl(Sito);
    else if (Aperture.PaginaWeb)
        Aperture.PaginaWeb(sessione::PercorsoProg + u"assistenza.htm#"_s + Ancora, u"Assistenza tecnica"_s);
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
    new Insegna(ui->quadro);
    CreaIconeFisse();
    Recenti = new PannelloRecenti(this);
    ui->rigaQuadro->addWidget(Recenti);
    ui->cmdApriPiede->setIcon(aspetto::Icona(u"open"_s));
    for (QToolButton* Bottone : {Recenti->cmdApri(), ui->cmdApriPiede})
        CreaApri(Bottone);
    CreaTasti();
    const auto Premuto = &QAbstractButton::clicked;
    Collega<QAbstractButton>(ui->imgClose, Premuto, this, [this] { close(); });
    MostraTasti(ui->cmdTasti, QKeySequence(TastiDi(u"", u"cmdTasti"), QKeySequence::PortableText));
    Collega<QAbstractButton>(ui->cmdTasti, Premuto, this, [] { MostraPaginaTasti(); });
    Collega<QAbstractButton>(ui->imgMarvenna, Premuto, this,
                             [] { ApriMarchio(indirizzi::Editore(), u"editore"_s); });
    Collega<QAbstractButton>(ui->imgQB, Premuto, this,
                             [] { ApriMarchio(indirizzi::Sviluppatore(), u"sviluppo"_s); });
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

frmStudio::~frmStudio()
{
    // The window takes the focus from its icons as it goes, when what they report to is gone already.
    for (const IconaStudio* Icona : Icone)
        Icona->disconnect(this);
}

void frmStudio::Mostra()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

// ---- icons --------------------------------------------------------------------------------------

void frmStudio::CreaIconeFisse()
{
    for (const Comando* Riga : ComandiDellaScrivania()) {
        const QString Parola = Riga->Parola.toString();
        IconaStudio* Icona = NuovaIcona(Riga->Icona.Etichetta.toString(), Parola, PostoFisso(NumeroIcone()));
        Icona->ImpostaIcona(aspetto::Icona(Parola));
        MostraTasti(Icona, QKeySequence(Riga->Tasti.toString(), QKeySequence::PortableText));
    }
}

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
    Collega<QAbstractButton>(Bottone, &QAbstractButton::clicked, this, [this] { imgMenu_Click(u"open"_s); });
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

void frmStudio::UnSoloCarattere()
{
    // The label with the longest words rules the program's icons; one of the user's rules itself alone.
    int Pixel = QFontInfo(font()).pixelSize();
    for (const IconaStudio* Icona : Icone)
        if (!DiUtente(Icona))
            Pixel = std::min(Pixel, IconaStudio::AltezzaCarattere(font(), Icona->text()));
    for (IconaStudio* Icona : Icone)
        Icona->ImpostaAltezzaCarattere(
            DiUtente(Icona) ? std::min(Pixel, IconaStudio::AltezzaCarattere(font(), Icona->text())) : Pixel);
}

void frmStudio::AbilitaIcone()
{
    for (IconaStudio* Icona : Icone) {
        if (DiUtente(Icona))
            continue;
        const QString Motivo = Impedimento(Icona->Tag());
        Icona->setEnabled(Motivo.isEmpty());
        Icona->setToolTip(Motivo.isEmpty() ? QString() : Icona->text() + u": "_s + Motivo);
    }
    // Without a site they show what the page of assistance says, and stand or fall with its command.
    const QString Motivo = Impedimento(u"assistenza");
    for (QToolButton* Marchio : {ui->imgMarvenna, ui->imgQB}) {
        Marchio->setEnabled(Motivo.isEmpty());
        Marchio->setToolTip(Marchio->text() + u": "_s + (Motivo.isEmpty() ? u"chi è"_s : Motivo));
    }
}

IconaStudio* frmStudio::NuovaIcona(const QString& Etichetta, const QString& Tag, const QPoint& Dove)
{
    const int Indice = NumeroIcone();
    auto* Icona = new IconaStudio(Etichetta, Tag, ui->quadro);
    Icona->setObjectName(u"imgMenu_"_s + QString::number(Indice));
    Icona->MettiImmagine(Dove);
    Icona->show();
    Icone.push_back(Icona);
    Collega(Icona, &IconaStudio::Puntata, this,
            [this, Indice](bool Sopra) { Menu(Sopra ? Indice : NessunaIcona); });
    Collega(Icona, &IconaStudio::Freccia, this, [this, Indice](int Tasto) { Sposta(Indice, Tasto); });
    Collega<QAbstractButton>(Icona, &QAbstractButton::clicked, this, [this, Tag] { imgMenu_Click(Tag); });
    return Icona;
}

IconaStudio* frmStudio::imgMenu(int Indice) const
{
    return Indice >= 0 && Indice < NumeroIcone() ? Icone[size_t(Indice)] : nullptr;
}

void frmStudio::LoadIconsFromIniFile()
{
    LeggiIconeUtente();
    for (int Riga = 0; Riga < IconeUtente.Righe(); ++Riga) {
        const QPoint Posto = PostoIcona(Riga);
        DrawNewIcon(IconeUtente(Riga, IconaTitolo).toString(),
                    IconeUtente(Riga, IconaCollegamento).toString(),
                    IconeUtente(Riga, IconaFigura).toString(), Riga, Posto.x(), Posto.y());
    }
}

void frmStudio::DrawNewIcon(const QString& Etichetta, const QString& Destinazione, const QString& Figura,
                            int Riga, int X, int Y)
{
    IconaStudio* Icona = NuovaIcona(Etichetta, PrefissoUtente + QString::number(Riga), {X, Y});
    // A picture that is gone, or is none, leaves the program's own drawing.
    Icona->ImpostaIcona(aspetto::Icona(ELink(Destinazione) ? u"link"_s : u"open"_s));
    Icona->ImpostaFigura(QPixmap(FileFigura(Figura)));
    Icona->setToolTip(u"Icona personale: "_s + Etichetta);
    Icona->setAccessibleDescription(Destinazione);
    Icona->setContextMenuPolicy(Qt::CustomContextMenu);
    Collega<QWidget>(Icona, &QWidget::customContextMenuRequested, this,
                     [Icona, Riga](const QPoint& Dove) { MenuIcona(Icona->mapToGlobal(Dove), Riga); });
}

void frmStudio::imgMenu_Click(const QString& Tag)
{
    Clessidra(true);
    Protetta([&] {
        if (Tag.startsWith(PrefissoUtente))
            ApriCollegamento(Tag.mid(PrefissoUtente.size()).toInt());
        else if (!Tag.isEmpty())
            EseguiComando(Tag, 0, {});
    });
    Clessidra(false);
}

void frmStudio::Menu(int Indice)
{
    if (const IconaStudio* Icona = imgMenu(Indice); Icona && !Icona->isEnabled())
        return;  // what cannot be opened is not marked
    if (Indice == IconaMarcata)
        return;
    IconaMarcata = Indice;
    for (int i = 0; i < NumeroIcone(); ++i)
        Icone[size_t(i)]->Colora(
            aspetto::DaBgr(i == Indice ? sessione::ColoreEtichettaSel : sessione::ColoreEtichette),
            aspetto::DaBgr(sessione::ColoreEtichetteBordo), i == Indice);
}

void frmStudio::Sposta(int Da, int Tasto)
{
    int Meta = Da;
    if (Tasto == Qt::Key_Home || Tasto == Qt::Key_End) {
        Meta = Tasto == Qt::Key_Home ? 0 : NumeroIcone() - 1;
    } else {
        double Minima = std::numeric_limits<double>::infinity();
        for (int i = 0; i < NumeroIcone(); ++i) {
            if (!Icone[size_t(i)]->isEnabled())
                continue;
            const double Via = Distanza(Icone[size_t(Da)]->pos(), Icone[size_t(i)]->pos(), Tasto);
            if (Via < Minima) {
                Minima = Via;
                Meta = i;
            }
        }
    }
    Icone[size_t(Meta)]->setFocus(Qt::TabFocusReason);
    ui->areaQuadro->ensureWidgetVisible(Icone[size_t(Meta)], 0, 0);
}

void frmStudio::keyPressEvent(QKeyEvent* Evento)
{
    switch (Evento->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
        Sposta(0, Qt::Key_Home);
        break;
    case Qt::Key_End:
        Sposta(0, Qt::Key_End);
        break;
    default:
        QWidget::keyPressEvent(Evento);
    }
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

    const auto Utente = std::stable_partition(Icone.begin(), Icone.end(),
                                              [](const IconaStudio* Icona) { return !DiUtente(Icona); });
    std::for_each(Utente, Icone.end(), [](IconaStudio* Icona) { delete Icona; });
    Icone.erase(Utente, Icone.end());
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
    if (Aperture.OffriRecupero)
        Aperture.OffriRecupero();
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
            ApriImpostazioni(SchedaSetup);
        } else if (Archivio && sessione::StudioNome.isEmpty() && !std::exchange(DettoStudio, true)) {
            MsgBox(u"Il programma non è stato ancora personalizzato. E' pertanto necessario procedere\n"_s
                   u"all'inserimento dei dati identificativi dello studio."_s,
                   vbInformation, TitoloMessaggio.toString());
            ApriImpostazioni(SchedaDatiStudio);
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
