#include "platform/preview/vistastampa.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/barraricerca.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/preview/vistastampa_accessibile.h"
#include "platform/preview/vistastampa_fogli.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The colour behind the sheets. A dark palette keeps a mere breath of a light one: around white sheets it
/// would glare.
QColor ColoreFondo(int Bgr)
{
    constexpr double Soffio = 0.15;
    const QColor Chiesto = aspetto::DaBgr(Bgr);
    return Bgr >= 0 && aspetto::Scuro() ? aspetto::Mischia(Chiesto, aspetto::DaBgr(-1), Soffio) : Chiesto;
}

/// What the search begins with: a selected text of one line.
QString Proposta(const QString& Scelto)
{
    constexpr qsizetype Massimo = 80;
    const bool UnaRiga = !Scelto.contains(u'\n') && !Scelto.contains(u'\t');
    return UnaRiga && Scelto.size() <= Massimo ? Scelto.trimmed() : QString();
}

}  // namespace

VistaStampa::VistaStampa(QWidget* Padre) : QWidget(Padre)
{
    RendiLeggibileAnteprima();
    Fogli = new FogliStampa(Vista.Pagine, this);
    Fogli->setObjectName(u"fogliStampa"_s);
    Fogli->setAccessibleName(u"Anteprima di stampa"_s);
    Barra = new BarraRicerca(this);
    auto* Colonna = new QVBoxLayout(this);
    Colonna->setContentsMargins(0, 0, 0, 0);
    Colonna->setSpacing(0);
    Margine = new QLabel(this);
    Margine->setObjectName(u"avvisoAnteprima"_s);
    Margine->setTextFormat(Qt::PlainText);
    Margine->setAlignment(Qt::AlignCenter);
    Margine->setWordWrap(true);  // what is cut of a warning is not said
    Margine->setMargin(aspetto::TraCampi / 2);
    Margine->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // never wider than the sheets' place
    Margine->hide();
    Colonna->addWidget(Barra);
    Colonna->addWidget(Margine);
    Colonna->addWidget(Fogli, 1);
    setFocusProxy(Fogli);
    Surface.Zoom = ZoomIniziale;
    Surface.BackColor = -1;
    Surface.Impaginatore = [this](const Documento& Doc) { return Disponi(Doc).NumeroPagine(); };
    Surface.Stringitore = [this](const Documento& Doc) { return StrettezzaDi(Disponi(Doc).Grado()); };

    connect(Fogli, &FogliStampa::PaginaCambiata, this, &VistaStampa::PaginaCambiata);
    connect(Fogli, &FogliStampa::ZoomCambiato, this, &VistaStampa::ZoomCambiato);
    Collega(Fogli, &FogliStampa::PaginaCambiata, this, &VistaStampa::Descrivi);
    Collega(Fogli, &FogliStampa::SceltaCambiata, this, &VistaStampa::AnnunciaScelta);
    Collega(Fogli, &FogliStampa::CopiaChiesta, this, &VistaStampa::Copia);
    Collega(Fogli, &FogliStampa::RicercaChiesta, this, &VistaStampa::ApriRicerca);
    Collega(Barra, &BarraRicerca::Cercato, this, &VistaStampa::Cerca);
    Collega(Barra, &BarraRicerca::Successivo, this, &VistaStampa::CercaSuccessivo);
    Collega(Barra, &BarraRicerca::Precedente, this, &VistaStampa::CercaPrecedente);
    Collega(Barra, &BarraRicerca::Chiusa, this, &VistaStampa::ChiudiRicerca);
    Fogli->ImpostaFondo(ColoreFondo(Surface.BackColor));
    Descrivi();
}

VistaStampa::~VistaStampa()
{
    delete Fogli;  // they look at the pages, which go before a widget's children do
}

// ---- document -------------------------------------------------------------------------------------

bool VistaStampa::Vale(const Disposta& Quale, const Documento& Doc) const
{
    return Quale.Foglio == Sheet && Quale.Doc == Doc;
}

const Impaginazione& VistaStampa::Disponi(const Documento& Doc)
{
    if (Vale(Vista, Doc))
        return Vista.Pagine;
    if (!Pronta || !Vale(*Pronta, Doc))
        Pronta = Disposta{Doc, Sheet, Impaginazione(Doc, Sheet)};
    return Pronta->Pagine;
}

void VistaStampa::Aggiorna()
{
    if (&Disponi(Surface.Contenuto()) != &Vista.Pagine)
        Vista = *std::move(Pronta);
    Pronta.reset();
    Fogli->ImpostaFondo(ColoreFondo(Surface.BackColor));
    Fogli->PagineCambiate();
    if (!Barra->isHidden())
        RipetiRicerca();
    Descrivi();
}

void VistaStampa::Svuota()
{
    Barra->Dimentica();
    Trovate.clear();
    Corrente = -1;
    Fogli->Tingi({}, -1);
    if (Surface.Contenuto().Blocchi.empty())
        return;
    Surface.StartDoc();
    Surface.EndDoc();
    Aggiorna();
    ImpostaPreviewPage(1);
}

void VistaStampa::ImpostaCarta(const Carta& Nuova)
{
    if (Nuova == Sheet)
        return;
    Sheet = Nuova;
    Aggiorna();
}

void VistaStampa::ImpostaAvviso(const QString& Testo)
{
    QPalette Colori = Margine->palette();
    Colori.setColor(QPalette::WindowText, aspetto::Sbagliato());
    Margine->setPalette(Colori);
    Margine->setText(Testo);
    Margine->setVisible(!Testo.isEmpty());
}

QString VistaStampa::Avviso() const
{
    return Margine->text();
}

int VistaStampa::PaginaInVista() const
{
    return Fogli->PaginaInVista();
}

void VistaStampa::ImpostaPreviewPage(int Pagina)
{
    Fogli->VaiAllaPagina(Pagina);
}

void VistaStampa::Descrivi()
{
    Fogli->setAccessibleDescription(u"Pagina %1 di %2"_s.arg(PaginaInVista()).arg(NumeroPagine()));
}

void VistaStampa::changeEvent(QEvent* Evento)
{
    QWidget::changeEvent(Evento);
    if (Evento->type() == QEvent::PaletteChange && Fogli)
        Fogli->ImpostaFondo(ColoreFondo(Surface.BackColor));
}

// ---- scale ----------------------------------------------------------------------------------------

void VistaStampa::ImpostaZoom(int Percento)
{
    Fogli->ImpostaZoom(Percento);
}

void VistaStampa::ImpostaZoomMode(int Modo)
{
    if (Modo == ZoomAdatta)
        Fogli->AdattaAllaFinestra(Adattamento::Adatta);
    else if (Modo == ZoomIntera)
        Fogli->AdattaAllaFinestra(Adattamento::Pagina);
    else if (Modo == ZoomLarghezza)
        Fogli->AdattaAllaFinestra(Adattamento::Larghezza);
}

void VistaStampa::ScegliAdattamento(int Modo)
{
    ImpostaZoomMode(Modo);
    Q_EMIT AdattamentoScelto(ZoomMode());
}

void VistaStampa::LasciaAdattamento()
{
    ImpostaZoom(ZoomIniziale);
    Q_EMIT AdattamentoScelto(ZoomMode());
}

int VistaStampa::ZoomMode() const
{
    switch (Fogli->Adattato()) {
    case Adattamento::Adatta:
        return ZoomAdatta;
    case Adattamento::Pagina:
        return ZoomIntera;
    case Adattamento::Larghezza:
        return ZoomLarghezza;
    case Adattamento::Nessuno:
        break;
    }
    return ZoomLibero;
}

int VistaStampa::Zoom() const
{
    return Fogli->Zoom();
}

// ---- text -----------------------------------------------------------------------------------------

Selezione VistaStampa::Scelta() const
{
    return Fogli->Scelta();
}

QString VistaStampa::TestoScelto() const
{
    return Vista.Pagine.TestoDi(Scelta());
}

void VistaStampa::SelezionaTutto()
{
    Fogli->Scegli(Vista.Pagine.Tutto());
}

void VistaStampa::Copia()
{
    if (!Scelta().Vuota())
        QGuiApplication::clipboard()->setText(TestoScelto());
}

void VistaStampa::AnnunciaScelta()
{
    const auto [Da, A] = std::minmax({Scelta().Da, Scelta().A});
    QAccessibleTextSelectionEvent Annuncio(Fogli, static_cast<int>(Da), static_cast<int>(A));
    Annuncio.setCursorPosition(static_cast<int>(Scelta().A));
    QAccessible::updateAccessibility(&Annuncio);
}

// ---- search ---------------------------------------------------------------------------------------

void VistaStampa::ApriRicerca()
{
    Barra->Apri(Proposta(TestoScelto()));
    Cerca(Barra->Testo());
}

void VistaStampa::ChiudiRicerca()
{
    if (Barra->isHidden())
        return;
    Barra->hide();
    if (Corrente >= 0)
        Fogli->Scegli(Trovate[Corrente]);  // what was looked for can be copied
    Trovate.clear();
    Corrente = -1;
    Fogli->Tingi({}, -1);
    Fogli->setFocus(Qt::OtherFocusReason);
}

/// Where a search begins: at what was found or selected last, else at what is on view.
qsizetype VistaStampa::InizioRicerca() const
{
    if (Corrente >= 0)
        return Trovate[Corrente].Da;
    return Scelta().Vuota() ? Fogli->PrimoPostoInVista() : std::min(Scelta().Da, Scelta().A);
}

void VistaStampa::Trova(const QString& Testo, qsizetype Da)
{
    Trovate = Vista.Pagine.CercaTutte(Testo);
    const auto Prima = std::ranges::lower_bound(Trovate, Da, {}, &Selezione::Da);
    Corrente = Trovate.isEmpty() ? -1 : Prima == Trovate.end() ? 0 : Prima - Trovate.begin();
    Fogli->Tingi(Trovate, Corrente);
    Barra->MostraConto(Corrente + 1, Trovate.size());
}

void VistaStampa::Cerca(const QString& Testo)
{
    Trova(Testo, InizioRicerca());
    if (Corrente >= 0)
        Fogli->Mostra(Trovate[Corrente]);
}

void VistaStampa::RipetiRicerca()
{
    const qsizetype Da = InizioRicerca();
    Trova(Barra->Testo(), Da);
}

void VistaStampa::VaiATrovata(bool Avanti)
{
    if (Barra->isHidden()) {
        ApriRicerca();
        return;
    }
    if (Corrente < 0)
        return;
    const qsizetype Quante = Trovate.size();
    Corrente = (Corrente + (Avanti ? 1 : Quante - 1)) % Quante;
    Fogli->Tingi(Trovate, Corrente);
    Fogli->Mostra(Trovate[Corrente]);
    Barra->MostraConto(Corrente + 1, Quante);
}

void VistaStampa::CercaSuccessivo()
{
    VaiATrovata(true);
}

void VistaStampa::CercaPrecedente()
{
    VaiATrovata(false);
}

// ---- keys -----------------------------------------------------------------------------------------

/// The command of a key that the sheets and the field have not used. Empty when there is none.
std::function<void()> VistaStampa::ComandoDi(const QKeyEvent* Evento)
{
    const bool InCampo = Barra->NelCampo();
    const bool Maiuscole = Evento->modifiers() & Qt::ShiftModifier;
    if (InCampo && EInvio(Evento->key()))
        return [this, Maiuscole] { VaiATrovata(!Maiuscole); };
    if (Evento->key() == Qt::Key_Escape && !Barra->isHidden())
        return [this] { ChiudiRicerca(); };
    if (Evento->modifiers() == Qt::ControlModifier) {
        if (Evento->key() == Qt::Key_0)
            return [this] { ImpostaZoom(100); };
        if (Evento->key() == Qt::Key_1)
            return [this] { ScegliAdattamento(ZoomIntera); };
        if (Evento->key() == Qt::Key_2)
            return [this] { ScegliAdattamento(ZoomLarghezza); };
    }
    const std::array<std::pair<QKeySequence::StandardKey, std::function<void()>>, 7> Comandi{{
        {QKeySequence::Find, [this] { ApriRicerca(); }},
        {QKeySequence::FindNext, [this] { CercaSuccessivo(); }},
        {QKeySequence::FindPrevious, [this] { CercaPrecedente(); }},
        {QKeySequence::ZoomIn, [this] { Fogli->PassoZoom(1); }},
        {QKeySequence::ZoomOut, [this] { Fogli->PassoZoom(-1); }},
        {QKeySequence::Copy, [this] { Copia(); }},
        {QKeySequence::SelectAll, [this] { SelezionaTutto(); }},
    }};
    for (const auto& [Tasto, Comando] : Comandi)
        if (Evento->matches(Tasto))
            return Comando;
    return {};
}

void VistaStampa::keyPressEvent(QKeyEvent* Evento)
{
    const std::function<void()> Comando = ComandoDi(Evento);
    if (Comando)
        Comando();
    else
        QWidget::keyPressEvent(Evento);
}

bool VistaStampa::event(QEvent* Evento)
{
    // A window's own shortcut of the same keys waits while the reader is here.
    if (Evento->type() == QEvent::ShortcutOverride && ComandoDi(static_cast<QKeyEvent*>(Evento))) {
        Evento->accept();
        return true;
    }
    return QWidget::event(Evento);
}

#include "moc_vistastampa.cpp"
