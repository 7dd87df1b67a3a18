#include "print/windows/frmPrint.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/davanti.h"
#include "platform/kit/singola.h"
#include "platform/preview/barraanteprima.h"
#include "platform/preview/stampante.h"
#include "platform/preview/vistastampa.h"
#include "platform/system/esportato.h"
#include "platform/system/messaggi.h"
#include "platform/system/shell.h"

#include <QKeyEvent>
#include <QStatusBar>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Titolo = u"Stampa documento";
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

frmPrint::frmPrint() : Vista(new VistaStampa), Barra(new BarraAnteprima(this))
{
    setObjectName(u"frmPrint"_s);
    setWindowTitle(Titolo.toString());
    resize(LarghezzaFinestra, AltezzaFinestra);

    CreaBarra();
    // Left gap as right gap, top as bottom, whatever the window's size.
    auto* Cornice = new QWidget;
    auto* Posto = new QVBoxLayout(Cornice);
    Posto->setContentsMargins(aspetto::TraCampi, aspetto::TraCampi, aspetto::TraCampi, aspetto::TraCampi);
    Vista->setObjectName(u"vpFree"_s);
    Posto->addWidget(Vista);
    setCentralWidget(Cornice);
    CreaApriCartella();
    statusBar()->hide();  // it is there while it has something to say
    Collega(statusBar(), &QStatusBar::messageChanged, this,
            [this](const QString& Testo) { statusBar()->setVisible(!Testo.isEmpty()); });
    Vista->setFocus();

    aspetto::RicordaPostoDi(this, objectName());
    Barra->MostraPagina();
}

void frmPrint::CreaApriCartella()
{
    auto* cmdApriCartella = new QToolButton;
    cmdApriCartella->setObjectName(u"cmdApriCartella"_s);
    cmdApriCartella->setText(u"Apri cartella"_s);
    cmdApriCartella->setToolTip(u"Apre la cartella del documento salvato"_s);
    cmdApriCartella->setAutoRaise(true);
    statusBar()->addPermanentWidget(cmdApriCartella);
    Collega(cmdApriCartella, &QAbstractButton::clicked, this, [this] { ApriCartellaDi(Salvato); });
}

void frmPrint::CreaBarra()
{
    Barra->setObjectName(u"barPrint"_s);
    Barra->setWindowTitle(u"Stampa"_s);
    Barra->setAccessibleName(u"Comandi di stampa"_s);
    Barra->setMovable(false);
    Barra->setContextMenuPolicy(Qt::PreventContextMenu);
    Barra->ImpostaVista(Vista);
    Barra->AggiungiPagine();
    Barra->AggiungiNumero();
    Barra->AggiungiZoom();
    Barra->addSeparator();
    Barra->Aggiungi(u"print"_s, u"Stampa documento"_s, [this] { Stampa(); })
        ->setShortcut(QKeySequence::Print);
    Barra->Aggiungi(u"pdf"_s, u"Salva in PDF"_s, [this] { Esporta(); });
    addToolBar(Barra);
}

void frmPrint::Stampa()
{
    if (PrintDialog(*Vista) != 0)
        PrintDoc(*Vista, windowTitle());
    Barra->MostraPagina();  // another paper may have made other pages
}

void frmPrint::Esporta()
{
    const QString Cartella = CartellaSpeciale(CartellaDocumenti);
    const QString Fatto = EsportaPdf(*Vista, Cartella, Documento);
    if (Fatto.isEmpty())
        return;
    Salvato = Fatto;
    statusBar()->showMessage(u"Salvato in "_s + Fatto);
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
    Barra->MostraPagina();
    PortaDavanti(this);
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

#include "moc_frmPrint.cpp"
