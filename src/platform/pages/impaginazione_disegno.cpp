// The pages on paper: painting, printing, PDF.
#include "platform/pages/impaginazione.h"

#include "platform/base/errore.h"
#include "platform/pages/datipdf.h"
#include "platform/pages/impaginata.h"
#include "platform/system/file.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double LineaMm = 0.15;

/// The running line ends half an inch above the edge, where the bottom margin has room for that; in a
/// narrower one it stands in the middle.
double AltoPiePagina(const AreaStampa& Area, double AltezzaFoglio, double AltezzaRiga)
{
    constexpr double DalBordo = 0.5 * PuntiPerPollice;
    const double Fondo = Area.Alto + Area.Altezza;
    const double Alto = AltezzaFoglio - DalBordo - AltezzaRiga;
    return Alto >= Fondo ? Alto : Fondo + (AltezzaFoglio - Fondo - AltezzaRiga) / 2.0;
}

/// Ends a painter's changes where they began.
class StatoPittore
{
public:
    explicit StatoPittore(QPainter& Suo) : Pittore(Suo) { Pittore.save(); }
    ~StatoPittore() { Pittore.restore(); }
    StatoPittore(const StatoPittore&) = delete;
    StatoPittore& operator=(const StatoPittore&) = delete;

private:
    QPainter& Pittore;
};

Errore ErroreStampante()
{
    return Errore(errori::Stampante);
}

}  // namespace

// ---- painting -------------------------------------------------------------------------------------

void Impaginazione::Impaginata::DisegnaRiga(QPainter& Pittore, const RigaPosata& Posata) const
{
    if (Posata.Brano < 0 || Posata.Muta)
        return;
    const Brano& Testo = Steso.Brani[static_cast<std::size_t>(Posata.Brano)];
    Testo.Disposto->lineAt(Posata.Riga).draw(&Pittore, QPointF(Testo.X, Posata.Y));
}

void Impaginazione::Impaginata::DisegnaPiePagina(QPainter& Pittore, int Pagina) const
{
    QString Testo = PiePagina;
    Testo.replace("%d"_L1, QString::number(Pagina)).replace(u'\n', u' ');
    if (Testo.trimmed().isEmpty())
        return;
    // It has one line: what does not fit is cut with a sign.
    if (FontPiePagina.Larghezza(QString(Testo).trimmed()) > Area.Larghezza)
        Testo = QFontMetricsF(FontPiePagina.Font, DispositivoStampa())
                    .elidedText(Testo.trimmed(), Qt::ElideRight, Area.Larghezza);
    const auto Riga = Disponi(Testo, FontPiePagina, Allineamento::Sinistra, Area.Larghezza);
    const double Y = AltoPiePagina(Area, Foglio.AltezzaMm * PuntiPerMm, FontPiePagina.Altezza);
    Riga->lineAt(0).draw(&Pittore, QPointF(Area.Sinistra, Y));
}

void Impaginazione::Impaginata::DisegnaTesta(QPainter& Pittore) const
{
    // On few dots many of the picture's are one: reckoned beforehand it has no torn edges.
    const QSize Punti = Pittore.deviceTransform().mapRect(DoveTesta).size().toSize();
    const bool Piccola = Punti.width() > 0 && Punti.height() > 0 && Punti.width() < Testa.width() / 2;
    Pittore.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    Pittore.drawImage(DoveTesta,
                      Piccola ? Testa.scaled(Punti, Qt::IgnoreAspectRatio, Qt::SmoothTransformation) : Testa);
}

void Impaginazione::DisegnaPagina(QPainter& Pittore, int Pagina) const
{
    const PaginaPosata* Sua = Dati->Pagina(Pagina);
    if (!Sua)
        return;
    const StatoPittore Stato(Pittore);
    Pittore.scale(1.0 / PuntiPerMm, 1.0 / PuntiPerMm);
    Pittore.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    if (Pagina == 1 && !Dati->Testa.isNull())
        Dati->DisegnaTesta(Pittore);
    Pittore.setPen(QPen(Qt::black, LineaMm * PuntiPerMm));
    for (const QLineF& Linea : Sua->Linee)
        Pittore.drawLine(Linea);
    for (const QRectF& Pieno : Sua->Pieni)
        Pittore.fillRect(Pieno, Qt::black);
    for (const RigaPosata& Una : Sua->Ripetute)
        Dati->DisegnaRiga(Pittore, Una);
    for (const RigaPosata& Una : Sua->Posate)
        Dati->DisegnaRiga(Pittore, Una);
    Dati->DisegnaPiePagina(Pittore, Pagina);
}

void Impaginazione::Stampa(QPagedPaintDevice& Dispositivo, int Da, int A) const
{
    QPainter Pittore;
    if (!Pittore.begin(&Dispositivo))
        throw ErroreStampante();
    Pittore.scale(Dispositivo.logicalDpiX() / MmPerPollice, Dispositivo.logicalDpiY() / MmPerPollice);
    const QPageLayout Pagina = Dispositivo.pageLayout();
    if (Pagina.mode() == QPageLayout::StandardMode) {
        // The origin of such a device is inside its margins.
        const QMarginsF Margini = Pagina.margins(QPageLayout::Millimeter);
        Pittore.translate(-Margini.left(), -Margini.top());
    }
    const int Ultima = std::min(A, NumeroPagine());
    for (int Questa = std::max(Da, 1); Questa <= Ultima; ++Questa) {
        if (Questa > std::max(Da, 1) && !Dispositivo.newPage())
            throw ErroreStampante();
        DisegnaPagina(Pittore, Questa);
    }
    if (!Pittore.end())
        throw ErroreStampante();
}

// ---- PDF ------------------------------------------------------------------------------------------

QByteArray Impaginazione::Pdf(const QString& Titolo) const
{
    QByteArray Byte;
    QBuffer Uscita(&Byte);
    Uscita.open(QIODevice::WriteOnly);
    {
        QPdfWriter Scrittore(&Uscita);
        Scrittore.setTitle(Titolo);
        Scrittore.setCreator(u"Calcanova"_s);
        Scrittore.setResolution(static_cast<int>(PuntiPerPollice));
        Scrittore.setPageSize(QPageSize(DimensioneMm(), QPageSize::Millimeter));
        Scrittore.setPageMargins(QMarginsF());
        Stampa(Scrittore, 1, NumeroPagine());
    }
    return ConDati(Byte, Dati->Proprieta);
}

void Impaginazione::ScriviPdf(const QString& Percorso, const QString& Titolo) const
{
    ScriviFile(Percorso, Pdf(Titolo), Lettori::Cartella);
}
