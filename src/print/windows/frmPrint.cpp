#include "print/windows/frmPrint.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/singola.h"
#include "platform/preview/stampante.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/messaggi.h"
#include "platform/system/percorsi.h"
#include "platform/system/shell.h"

#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Titolo = u"Stampa documento";
constexpr int ZoomPieno = 100;

struct VoceZoom
{
    QStringView Scritta;
    int Percento;  ///< 999 fits the page to the window
};
constexpr int Adatta = 999;
constexpr std::array VociZoom{
    VoceZoom{u"120%", 120}, VoceZoom{u"100%", 100}, VoceZoom{u"90%", 90},
    VoceZoom{u"80%", 80},   VoceZoom{u"70%", 70},   VoceZoom{u"Adatta", Adatta},
};

constexpr int LarghezzaFinestra = 760;
constexpr int AltezzaFinestra = 680;

/// A caption's suffix as part of a file name: ": calcolo termini" gives "calcolo termini".
QString NomeDocumento(const QString& Suffisso)
{
    QString Nome;
    for (const QChar Lettera : Suffisso)
        if (Lettera.isLetterOrNumber() || Lettera.isSpace())
            Nome += Lettera;
    Nome = Nome.simplified();
    return Nome.isEmpty() ? u"documento"_s : Nome;
}

}  // namespace

frmPrint::frmPrint() : Vista(new VistaStampa), Barra(new QToolBar(this)), Pagina(new QLabel)
{
    setObjectName(u"frmPrint"_s);
    setWindowTitle(Titolo.toString());
    resize(LarghezzaFinestra, AltezzaFinestra);

    Barra->setObjectName(u"barPrint"_s);
    Barra->setWindowTitle(u"Stampa"_s);
    Barra->setMovable(false);
    Barra->setContextMenuPolicy(Qt::PreventContextMenu);
    AggiungiTasto(u"up"_s, u"Pagina precedente"_s);
    AggiungiTasto(u"down"_s, u"Pagina successiva"_s);
    Pagina->setObjectName(u"txtPage"_s);
    Pagina->setAccessibleName(u"Pagina"_s);
    Pagina->setContentsMargins(aspetto::TraCampi, 0, aspetto::TraCampi, 0);
    Barra->addWidget(Pagina);
    AggiungiZoom();
    Barra->addSeparator();
    AggiungiTasto(u"print"_s, u"Stampa documento"_s)->setShortcut(QKeySequence::Print);
    AggiungiTasto(u"pdf"_s, u"Salva in PDF"_s);
    addToolBar(Barra);

    // Left gap as right gap, top as bottom, whatever the window's size.
    auto* Cornice = new QWidget;
    auto* Posto = new QVBoxLayout(Cornice);
    Posto->setContentsMargins(aspetto::TraCampi, aspetto::TraCampi, aspetto::TraCampi, aspetto::TraCampi);
    Vista->setObjectName(u"vpFree"_s);
    Posto->addWidget(Vista);
    setCentralWidget(Cornice);
    statusBar()->hide();  // it is there while it has something to say
    Collega(statusBar(), &QStatusBar::messageChanged, this,
            [this](const QString& Testo) { statusBar()->setVisible(!Testo.isEmpty()); });
    Vista->setFocus();

    Collega(Vista, &VistaStampa::PaginaCambiata, this, &frmPrint::MostraPagina);
    aspetto::RicordaPostoDi(this, objectName());
    MostraPagina();
}

QAction* frmPrint::AggiungiTasto(const QString& Chiave, const QString& Suggerimento)
{
    QAction* Tasto = Barra->addAction(aspetto::Icona(Chiave), Suggerimento);
    Tasto->setObjectName(Chiave);
    // A toolbar takes its buttons out of the tab order; what the mouse can do, the keyboard can.
    QWidget* Bottone = Barra->widgetForAction(Tasto);
    Bottone->setObjectName(u"barPrint_"_s + Chiave);
    Bottone->setAccessibleName(Suggerimento);
    Bottone->setFocusPolicy(Qt::TabFocus);
    Collega(Tasto, &QAction::triggered, this, [this, Chiave] { barPrint_Click(Chiave); });
    return Tasto;
}

void frmPrint::AggiungiZoom()
{
    QAction* Tasto = AggiungiTasto(u"zoom"_s, u"Dimensioni preview"_s);
    auto* Menu = new QMenu(this);
    for (const VoceZoom& Voce : VociZoom) {
        QAction* Scelta = Menu->addAction(Voce.Scritta.toString());
        Scelta->setObjectName(u"z%1"_s.arg(Voce.Percento));
        Collega(Scelta, &QAction::triggered, this,
                [this, Chiave = Scelta->objectName()] { barPrint_Click(Chiave); });
    }
    Tasto->setMenu(Menu);
    qobject_cast<QToolButton*>(Barra->widgetForAction(Tasto))->setPopupMode(QToolButton::MenuButtonPopup);
}

void frmPrint::barPrint_Click(const QString& Chiave)
{
    if (Chiave == "up"_L1) {
        Vista->ImpostaPreviewPage(Vista->PaginaInVista() - 1);
    } else if (Chiave == "down"_L1) {
        Vista->ImpostaPreviewPage(Vista->PaginaInVista() + 1);
    } else if (Chiave == "zoom"_L1) {
        Vista->ImpostaZoomMode(VistaStampa::ZoomAdatta);
        Vista->ImpostaZoom(ZoomPieno);
    } else if (Chiave == "print"_L1) {
        if (PrintDialog(*Vista) != 0)
            PrintDoc(*Vista, windowTitle());
        MostraPagina();  // another paper may have made other pages
    } else if (Chiave == "pdf"_L1) {
        Esporta();
    } else if (Chiave.startsWith(u'z')) {
        const int Numero = Chiave.mid(1).toInt();
        if (Numero == Adatta)
            Vista->ImpostaZoomMode(VistaStampa::ZoomAdatta);
        else
            Vista->ImpostaZoom(Numero);
    }
}

void frmPrint::Esporta()
{
    const QString Cartella = CartellaSpeciale(CartellaDocumenti);
    const QString Fatto = EsportaPdf(*Vista, Cartella, Documento);
    if (!Fatto.isEmpty())
        statusBar()->showMessage(u"Salvato in "_s + Fatto);
}

void frmPrint::MostraPagina()
{
    Pagina->setText(u"%1/%2"_s.arg(Vista->PaginaInVista()).arg(Vista->NumeroPagine()));
}

void frmPrint::Mostra(const QString& Suffisso)
{
    Documento = NomeDocumento(Suffisso);
    setWindowTitle(Titolo.toString() + Suffisso);
    statusBar()->clearMessage();
    Vista->ChiudiRicerca();
    Vista->Aggiorna();
    Vista->ImpostaZoom(Vista->Foglio().Zoom);
    Vista->ImpostaPreviewPage(1);
    MostraPagina();
    show();
    if (isMinimized())
        showNormal();
    raise();
    activateWindow();
}

void frmPrint::keyPressEvent(QKeyEvent* Evento)
{
    if (Evento->key() == Qt::Key_Escape)
        close();
    else
        QMainWindow::keyPressEvent(Evento);
}

bool MostraStampa(const QString& Suffisso, const std::function<bool(Superficie& vp)>& Componi)
{
    auto& Finestra = Singola<frmPrint>();
    if (!Componi(Finestra.vpFree().Foglio()))
        return false;
    Finestra.Mostra(Suffisso);
    return true;
}
