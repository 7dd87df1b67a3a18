// Places, scale and painting of the sheets.
#include "platform/preview/vistastampa_fogli.h"

#include "platform/kit/aspetto.h"
#include "platform/preview/vistastampa.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>

#include <cmath>
#include <utility>

namespace {

// Pictures of the pages around the reader. A page larger than the limit is painted each time instead: its
// letters are few on view, while its picture would take more than all the rest of the program.
constexpr qsizetype ByteImmagini = qsizetype{24} * 1024 * 1024;
constexpr qsizetype ByteImmagine = qsizetype{10} * 1024 * 1024;
constexpr int BytePixel = 4;

constexpr int RigaPixel = 40;
constexpr double PassoDiZoom = 1.1;

// Paper is white whatever the palette, and so are the tints on it: they multiply, so that text stays black.
constexpr QColor TintaScelta(0xB5, 0xD3, 0xF6);
constexpr QColor TintaTrovata(0xFF, 0xF1, 0xA6);
constexpr QColor TintaCorrente(0xFF, 0xC0, 0x66);
constexpr QColor BordoCorrente(0xC8, 0x6A, 0x00);

/// A rectangle put on whole dots of the device, so that pictures are not blurred on dense screens.
QRectF SuiPunti(const QRectF& Rettangolo, double Densita)
{
    const auto Intero = [Densita](double Valore) { return std::round(Valore * Densita) / Densita; };
    return {QPointF(Intero(Rettangolo.left()), Intero(Rettangolo.top())),
            QPointF(Intero(Rettangolo.right()), Intero(Rettangolo.bottom()))};
}

void DisegnaOmbra(QPainter& Pittore, const QRectF& Foglio)
{
    constexpr int Strati = 3;
    constexpr int Velo = 14;  // of 255, for each layer
    for (int i = Strati; i > 0; --i)
        Pittore.fillRect(Foglio.adjusted(1 - i, 2 - i, i, i + 1), QColor(0, 0, 0, Velo));
}

}  // namespace

FogliStampa::FogliStampa(const Impaginazione& Sue, QWidget* Padre)
    : QAbstractScrollArea(Padre), Pagine(Sue), Fondo(palette().color(QPalette::Window)),
      Percento(VistaStampa::ZoomIniziale), Immagini(ByteImmagini)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    verticalScrollBar()->setSingleStep(RigaPixel);
    horizontalScrollBar()->setSingleStep(RigaPixel);
}

// ---- places ---------------------------------------------------------------------------------------

QPoint FogliStampa::Scorrimento() const
{
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

PuntoFoglio FogliStampa::PuntoDi(QPointF InFinestra) const
{
    return Posti.InMm(InFinestra + QPointF(Scorrimento()));
}

void FogliStampa::Riporta(const PuntoFoglio& Punto, QPointF InFinestra)
{
    PuntoFoglio Esistente = Punto;
    Esistente.Pagina = std::min(Punto.Pagina, Pagine.NumeroPagine());
    const QPointF Angolo = Posti.InPixel(Esistente) - InFinestra;
    horizontalScrollBar()->setValue(static_cast<int>(std::lround(Angolo.x())));
    verticalScrollBar()->setValue(static_cast<int>(std::lround(Angolo.y())));
}

void FogliStampa::Disponi()
{
    Posti = DisposizioneFogli(Pagine.DimensioneMm(), Pagine.NumeroPagine(), Percento, viewport()->size());
    const QSize Oltre = Posti.Misura() - viewport()->size();
    horizontalScrollBar()->setPageStep(viewport()->width());
    verticalScrollBar()->setPageStep(viewport()->height());
    horizontalScrollBar()->setRange(0, std::max(0, Oltre.width()));
    verticalScrollBar()->setRange(0, std::max(0, Oltre.height()));
    viewport()->update();
}

void FogliStampa::PagineCambiate()
{
    const PuntoFoglio Angolo = PuntoDi({});
    Immagini.clear();
    Trovate.clear();
    Attuale = -1;
    ImpostaScelta(0, 0);
    if (Adatta != Adattamento::Nessuno)
        CambiaScala(ScalaAdatta(), {});
    InDisposizione = true;
    Disponi();
    Riporta(Angolo, {});
    InDisposizione = false;
    AnnunciaPagina(std::min(InVista, Pagine.NumeroPagine()));
}

void FogliStampa::ImpostaFondo(const QColor& Colore)
{
    Fondo = Colore;
    viewport()->update();
}

void FogliStampa::VaiAllaPagina(int Pagina)
{
    const int Esistente = std::clamp(Pagina, 1, Pagine.NumeroPagine());
    InDisposizione = true;
    verticalScrollBar()->setValue(Posti.Foglio(Esistente).top() - DisposizioneFogli::Luce);
    InDisposizione = false;
    AnnunciaPagina(Esistente);
}

void FogliStampa::SeguiPagina()
{
    const QScrollBar* Barra = verticalScrollBar();
    if (Barra->maximum() > 0 && Barra->value() == Barra->maximum())
        AnnunciaPagina(Pagine.NumeroPagine());  // the last sheets may be on view together
    else if (Barra->value() == 0)
        AnnunciaPagina(1);
    else
        AnnunciaPagina(Posti.PiuVisibile(Barra->value(), Barra->value() + viewport()->height()));
}

void FogliStampa::AnnunciaPagina(int Pagina)
{
    if (Pagina == InVista)
        return;
    InVista = Pagina;
    Q_EMIT PaginaCambiata(Pagina);
}

void FogliStampa::scrollContentsBy(int, int)
{
    // A few sheets are copied from their pictures: painting all is as quick as moving what was painted.
    viewport()->update();
    if (!InDisposizione)
        SeguiPagina();
}

void FogliStampa::resizeEvent(QResizeEvent*)
{
    const PuntoFoglio Angolo = PuntoDi({});
    if (Adatta != Adattamento::Nessuno)
        CambiaScala(ScalaAdatta(), {});
    InDisposizione = true;
    Disponi();
    // The sheets' place in the window's width is theirs, only heights are kept.
    verticalScrollBar()->setValue(static_cast<int>(std::lround(Posti.InPixel(Angolo).y())));
    InDisposizione = false;
}

// ---- scale ----------------------------------------------------------------------------------------

int FogliStampa::Zoom() const
{
    return static_cast<int>(std::lround(Percento));
}

double FogliStampa::ScalaAdatta() const
{
    QSize Finestra = maximumViewportSize();
    const QSizeF Foglio = Pagine.DimensioneMm();
    const int Barra = verticalScrollBar()->sizeHint().width();
    if (Adatta == Adattamento::Larghezza) {
        // A bar beside the sheets makes them narrower, so that it stays where it is needed for the wider
        // ones.
        const double Piena = DisposizioneFogli::PercentoLarghezza(Foglio, Finestra);
        const DisposizioneFogli Larghi(Foglio, Pagine.NumeroPagine(), Piena, Finestra);
        if (Larghi.Misura().height() > Finestra.height())
            Finestra.rwidth() -= Barra;
        return DisposizioneFogli::PercentoLarghezza(Foglio, Finestra);
    }
    if (Pagine.NumeroPagine() > 1)
        Finestra.rwidth() -= Barra;
    return DisposizioneFogli::PercentoAdatto(Foglio, Finestra);
}

void FogliStampa::ImpostaAdattamento(Adattamento Come)
{
    if (std::exchange(Adatta, Come) != Come)
        Q_EMIT AdattamentoCambiato();
}

void FogliStampa::ImpostaZoom(double Nuovo)
{
    ImpostaAdattamento(Adattamento::Nessuno);
    // What is read first stays: enlarged around the middle, a page that was whole on view would lose its
    // head.
    CambiaScala(Nuovo, {viewport()->rect().center().x() * 1.0, 0.0});
}

void FogliStampa::AdattaAllaFinestra(Adattamento Come)
{
    ImpostaAdattamento(Come);
    const int Pagina = InVista;
    CambiaScala(ScalaAdatta(), {});
    if (Come != Adattamento::Larghezza)
        VaiAllaPagina(Pagina);  // it is to be seen whole
}

void FogliStampa::PassoZoom(int Passi)
{
    ImpostaZoom(Percento * std::pow(PassoDiZoom, Passi));
}

void FogliStampa::CambiaScala(double Nuovo, QPointF Fermo)
{
    const int Prima = Zoom();
    const PuntoFoglio Punto = PuntoDi(Fermo);
    Percento = std::clamp(Nuovo, double(VistaStampa::ZoomMinimo), double(VistaStampa::ZoomMassimo));
    InDisposizione = true;
    Disponi();
    Riporta(Punto, Fermo);
    InDisposizione = false;
    if (Zoom() != Prima)
        Q_EMIT ZoomCambiato(Zoom());
}

void FogliStampa::wheelEvent(QWheelEvent* Evento)
{
    if (!(Evento->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(Evento);
        return;
    }
    Evento->accept();
    const double Scatti = Evento->angleDelta().y() / double(QWheelEvent::DefaultDeltasPerStep);
    if (Scatti == 0.0)
        return;
    ImpostaAdattamento(Adattamento::Nessuno);
    CambiaScala(Percento * std::pow(PassoDiZoom, Scatti), Evento->position());
}

// ---- painting -------------------------------------------------------------------------------------

void FogliStampa::paintEvent(QPaintEvent* Evento)
{
    QPainter Pittore(viewport());
    Pittore.fillRect(Evento->rect(), Fondo);
    const QRect Esposto = Evento->rect().translated(Scorrimento());
    Pittore.save();
    Pittore.translate(-Scorrimento());
    for (int Pagina = Posti.PaginaA(Esposto.top()); Pagina <= Posti.PaginaA(Esposto.bottom()); ++Pagina)
        DisegnaFoglio(Pittore, Pagina, Esposto);
    Pittore.restore();
    if (hasFocus()) {
        Pittore.setPen(aspetto::Accento());
        Pittore.drawRect(QRectF(viewport()->rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void FogliStampa::DisegnaFoglio(QPainter& Pittore, int Pagina, const QRect& Esposto)
{
    const QRectF Dove = SuiPunti(Posti.Foglio(Pagina), devicePixelRatioF());
    DisegnaOmbra(Pittore, Dove);
    DisegnaTesto(Pittore, Pagina, Dove, Esposto);
    DisegnaTinte(Pittore, Pagina);
}

void FogliStampa::DisegnaTesto(QPainter& Pittore, int Pagina, const QRectF& Dove, const QRect& Esposto)
{
    const double Densita = devicePixelRatioF();
    const QSize Pixel = (Dove.size() * Densita).toSize();
    if (qsizetype(Pixel.width()) * Pixel.height() * BytePixel <= ByteImmagine) {
        Pittore.drawImage(Dove.topLeft(), ImmagineDi(Pagina, Pixel, Densita));
        return;
    }
    Pittore.save();
    Pittore.setClipRect(Dove.intersected(Esposto));
    Pittore.fillRect(Dove, Qt::white);
    Pittore.translate(Dove.topLeft());
    Pittore.scale(Posti.Scala(), Posti.Scala());
    Pagine.DisegnaPagina(Pittore, Pagina);
    Pittore.restore();
}

QImage FogliStampa::ImmagineDi(int Pagina, QSize Pixel, double Densita)
{
    if (PixelImmagini != Pixel) {
        Immagini.clear();
        PixelImmagini = Pixel;
    }
    if (const QImage* Pronta = Immagini.object(Pagina))
        return *Pronta;
    QImage Fatta(Pixel, QImage::Format_RGB32);
    Fatta.fill(Qt::white);
    {
        QPainter Pittore(&Fatta);
        Pittore.scale(Posti.Scala() * Densita, Posti.Scala() * Densita);
        Pagine.DisegnaPagina(Pittore, Pagina);
    }
    Fatta.setDevicePixelRatio(Densita);
    Immagini.insert(Pagina, new QImage(Fatta), Fatta.sizeInBytes());
    return Fatta;
}

void FogliStampa::DisegnaTinte(QPainter& Pittore, int Pagina) const
{
    Pittore.save();
    Pittore.setCompositionMode(QPainter::CompositionMode_Multiply);
    for (qsizetype i = 0; i < Trovate.size(); ++i)
        if (i != Attuale)
            Tinta(Pittore, Trovate[i], Pagina, TintaTrovata);
    Tinta(Pittore, Scelta(), Pagina, TintaScelta);
    if (Attuale >= 0) {
        Pittore.setPen(BordoCorrente);
        Tinta(Pittore, Trovate[Attuale], Pagina, TintaCorrente);
    }
    Pittore.restore();
}

/// Only the part of the stretch that stands on the page is asked for: the whole document may be selected.
void FogliStampa::Tinta(QPainter& Pittore, const Selezione& Tratto, int Pagina, const QColor& Colore) const
{
    const Selezione Sua = Pagine.TestoDiPagina(Pagina);
    const Selezione Parte{std::max(Sua.Da, std::min(Tratto.Da, Tratto.A)),
                          std::min(Sua.A, std::max(Tratto.Da, Tratto.A))};
    if (Parte.Da >= Parte.A)
        return;
    const bool ConBordo = Colore == TintaCorrente;
    for (const RettangoloPagina& Uno : Pagine.Rettangoli(Parte)) {
        if (Uno.Pagina != Pagina)
            continue;
        const QRect Dove = InFinestra(Uno).translated(Scorrimento());
        Pittore.fillRect(Dove, Colore);
        if (ConBordo)
            Pittore.drawRect(Dove.adjusted(-1, -1, 0, 0));
    }
}

QRect FogliStampa::InFinestra(const RettangoloPagina& Rettangolo) const
{
    const QPointF Alto = Posti.InPixel({Rettangolo.Pagina, Rettangolo.Mm.topLeft()});
    const QPointF Basso = Posti.InPixel({Rettangolo.Pagina, Rettangolo.Mm.bottomRight()});
    // Edges are rounded alike, so that the tints of two rows meet and do not overlap.
    return QRect(Alto.toPoint(), Basso.toPoint() - QPoint(1, 1)).translated(-Scorrimento());
}

void FogliStampa::Tingi(const QList<Selezione>& Nuove, qsizetype Corrente)
{
    Trovate = Nuove;
    Attuale = Corrente;
    viewport()->update();
}

void FogliStampa::Mostra(const Selezione& Tratto)
{
    const QList<RettangoloPagina> Rettangoli = Pagine.Rettangoli(Tratto);
    const RettangoloPagina Primo = Rettangoli.isEmpty() ? Pagine.Cursore(Tratto.Da) : Rettangoli.first();
    const QRect Dove = InFinestra(Primo).adjusted(-RigaPixel, -RigaPixel, RigaPixel, RigaPixel);
    const QRect Vista = viewport()->rect();
    const auto Avvicina = [](QScrollBar* Barra, int Da, int A, int Spazio) {
        if (Da < 0)
            Barra->setValue(Barra->value() + Da);
        else if (A > Spazio)
            Barra->setValue(Barra->value() + std::min(Da, A - Spazio));
    };
    Avvicina(verticalScrollBar(), Dove.top(), Dove.bottom(), Vista.height());
    Avvicina(horizontalScrollBar(), Dove.left(), Dove.right(), Vista.width());
    AnnunciaPagina(Primo.Pagina);
}

qsizetype FogliStampa::PrimoPostoInVista() const
{
    const PuntoFoglio Alto = PuntoDi({});
    return Pagine.PostoIn(Alto.Pagina, {0.0, Alto.Mm.y()});
}

qsizetype FogliStampa::PostoA(QPoint InFinestra) const
{
    const PuntoFoglio Punto = PuntoDi(InFinestra);
    return Pagine.PostoIn(Punto.Pagina, Punto.Mm);
}

#include "moc_vistastampa_fogli.cpp"
