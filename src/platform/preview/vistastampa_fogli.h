// The sheets of a preview: painted, scrolled, zoomed, their text selected.
#pragma once

#include "platform/pages/impaginazione.h"
#include "platform/preview/disposizionefogli.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QCache>
#include <QColor>
#include <QElapsedTimer>
#include <QImage>

/// What of a sheet fits the window, whatever its size.
enum class Adattamento {
    Nessuno,
    Adatta,  ///< a whole page, for now
    Pagina,  ///< a whole page, as a lasting choice
    Larghezza,
};

/// Shows pages that somebody else owns. VistaStampa tells what mouse and keys do.
class FogliStampa : public QAbstractScrollArea
{
    Q_OBJECT

public:
    FogliStampa(const Impaginazione& Sue, QWidget* Padre);

    /// The pages are others now; the reader stays where he is, as far as there are pages.
    void PagineCambiate();
    void ImpostaFondo(const QColor& Colore);

    [[nodiscard]] int PaginaInVista() const { return InVista; }
    void VaiAllaPagina(int Pagina);

    [[nodiscard]] int Zoom() const;
    [[nodiscard]] Adattamento Adattato() const { return Adatta; }
    void ImpostaZoom(double Percento);          ///< the middle of the window stays where it is
    void AdattaAllaFinestra(Adattamento Come);  ///< follows the window's size until a scale is asked for
    void PassoZoom(int Passi);                  ///< steps in or, below 0, out

    [[nodiscard]] Selezione Scelta() const { return {Ancora, Capo}; }
    void Scegli(const Selezione& Nuova);
    /// Scrolls as little as it takes to see a stretch of text.
    void Mostra(const Selezione& Tratto);
    /// Place of the first text on view.
    [[nodiscard]] qsizetype PrimoPostoInVista() const;
    /// What a search has found, and which of it is the current one; -1 none.
    void Tingi(const QList<Selezione>& Trovate, qsizetype Corrente);

    /// Rectangle on the screen, in pixels of the viewport.
    [[nodiscard]] QRect InFinestra(const RettangoloPagina& Rettangolo) const;
    [[nodiscard]] qsizetype PostoA(QPoint InFinestra) const;

Q_SIGNALS:
    void PaginaCambiata(int Pagina);
    void ZoomCambiato(int Percento);
    void AdattamentoCambiato();
    void SceltaCambiata();
    void CopiaChiesta();
    void RicercaChiesta();

protected:
    void paintEvent(QPaintEvent* Evento) override;
    void resizeEvent(QResizeEvent* Evento) override;
    void scrollContentsBy(int Dx, int Dy) override;
    void wheelEvent(QWheelEvent* Evento) override;
    void mousePressEvent(QMouseEvent* Evento) override;
    void mouseMoveEvent(QMouseEvent* Evento) override;
    void mouseReleaseEvent(QMouseEvent* Evento) override;
    void mouseDoubleClickEvent(QMouseEvent* Evento) override;
    void keyPressEvent(QKeyEvent* Evento) override;
    void contextMenuEvent(QContextMenuEvent* Evento) override;
    void timerEvent(QTimerEvent* Evento) override;
    void focusInEvent(QFocusEvent* Evento) override;
    void focusOutEvent(QFocusEvent* Evento) override;

private:
    /// What dragging selects by.
    enum class Unita { Lettere, Parole, Blocchi };

    // ---- geometry
    [[nodiscard]] QPoint Scorrimento() const;
    [[nodiscard]] PuntoFoglio PuntoDi(QPointF InFinestra) const;
    /// Puts a point of a page under a point of the window.
    void Riporta(const PuntoFoglio& Punto, QPointF InFinestra);
    void Disponi();  ///< sheets and scroll bars for pages, scale and window of now
    void CambiaScala(double Percento, QPointF Fermo);
    void ImpostaAdattamento(Adattamento Come);
    [[nodiscard]] double ScalaAdatta() const;
    void SeguiPagina();
    void AnnunciaPagina(int Pagina);

    // ---- painting
    void DisegnaFoglio(QPainter& Pittore, int Pagina, const QRect& Esposto);
    void DisegnaTesto(QPainter& Pittore, int Pagina, const QRectF& Dove, const QRect& Esposto);
    void DisegnaTinte(QPainter& Pittore, int Pagina) const;
    void Tinta(QPainter& Pittore, const Selezione& Tratto, int Pagina, const QColor& Colore) const;
    [[nodiscard]] QImage ImmagineDi(int Pagina, QSize Pixel, double Densita);

    // ---- selection
    [[nodiscard]] Selezione UnitaIn(qsizetype Posto) const;
    void EstendiA(qsizetype Posto);
    void ImpostaScelta(qsizetype Da, qsizetype A);
    void SeguiPuntatore(QPoint InFinestra);
    [[nodiscard]] bool MuoviCapo(int Tasto);
    [[nodiscard]] qsizetype PostoInAltraRiga(int Verso) const;
    [[nodiscard]] bool Scorri(QKeyEvent* Evento);

    const Impaginazione& Pagine;
    DisposizioneFogli Posti;
    QColor Fondo;
    double Percento;
    Adattamento Adatta = Adattamento::Nessuno;
    bool InDisposizione = false;
    int InVista = 1;

    QCache<int, QImage> Immagini;  ///< cost in bytes
    QSize PixelImmagini;           ///< what the kept pictures were made for
    QList<Selezione> Trovate;
    qsizetype Attuale = -1;

    qsizetype Ancora = 0;
    qsizetype Capo = 0;
    Selezione Nucleo;  ///< what the press has taken, before dragging
    Unita Passo = Unita::Lettere;
    bool Trascina = false;
    QPoint UltimoPunto;
    QElapsedTimer DalDoppioClic;
    QBasicTimer TempoScorrimento;
};
