// The preview: a print surface that shows its document as pages.
#pragma once

#include "platform/document/superficie.h"
#include "platform/pages/impaginazione.h"

#include <QWidget>

#include <functional>
#include <optional>

class BarraRicerca;
class FogliStampa;
class QLabel;

/// A print surface and the pages of its document, white sheets one below the other on the surface's
/// BackColor. Compose on Foglio(), then call Aggiorna().
///
/// Mouse: the wheel scrolls, with Ctrl it zooms around the pointer; dragging selects text and scrolls at the
/// edges, a double click takes the word, a third one the cell or paragraph, Shift+click extends.
///
/// Keys: arrows, PgUp, PgDn, Home and End scroll, with Shift the arrows, Home and End extend the selection;
/// Ctrl with plus, minus and 0 zooms, Ctrl+1 fits the whole page, Ctrl+2 its width. Ctrl+C copies, Ctrl+A
/// selects all. Ctrl+F, F3 and Shift+F3 search; Esc closes the search. PaginaInVista is the page of which
/// most is on view, or the one last asked for until the reader scrolls.
class VistaStampa : public QWidget
{
    Q_OBJECT

public:
    static constexpr int ZoomMinimo = 25;
    static constexpr int ZoomMassimo = 400;
    static constexpr int ZoomIniziale = 80;
    // The modes that fit the pages to the window.
    static constexpr int ZoomAdatta = 5;     ///< a whole page
    static constexpr int ZoomLarghezza = 6;  ///< its width
    static constexpr int ZoomIntera = 7;     ///< a whole page, as a choice that is remembered
    static constexpr int ZoomLibero = 0;     ///< none: the scale is a percentage

    explicit VistaStampa(QWidget* Padre = nullptr);
    ~VistaStampa() override;

    /// The surface to compose on. Its Zoom and PreviewPage are the composition's; the preview shows what
    /// ImpostaZoom and ImpostaPreviewPage ask for.
    [[nodiscard]] Superficie& Foglio() { return Surface; }
    /// Lays the surface's document out and shows it where the reader was: page, place on it and zoom stay, as
    /// far as there are pages; the selection is dropped, an open search looks again. What was laid out
    /// already, for this sheet, is not laid out once more.
    void Aggiorna();
    /// Another document comes, or none: the content goes, and what was sought and selected in it.
    void Svuota();
    /// The pages on view, for printing and exporting.
    [[nodiscard]] const Impaginazione& Pagine() const { return Vista.Pagine; }

    // ---- paper
    /// Lays out for another sheet; the same one changes nothing.
    void ImpostaCarta(const Carta& Nuova);
    [[nodiscard]] Carta CartaInUso() const { return Sheet; }

    /// A line in the margin above the sheets: what the reader has to know of the document and its paper does
    /// not say. Empty: none.
    void ImpostaAvviso(const QString& Testo);
    [[nodiscard]] QString Avviso() const;

    // ---- pages, from 1
    [[nodiscard]] int NumeroPagine() const { return Vista.Pagine.NumeroPagine(); }
    [[nodiscard]] int PaginaInVista() const;
    /// Shows the top of a page; outside 1..NumeroPagine() the nearest one.
    void ImpostaPreviewPage(int Pagina);

    // ---- scale
    /// Percent of the true size, moved into ZoomMinimo..ZoomMassimo; ends the fitting to the window. What
    /// stood at the upper edge stays there.
    void ImpostaZoom(int Percento);
    /// ZoomAdatta and ZoomIntera fit the whole page to the window, ZoomLarghezza its width; they follow the
    /// window's size until a zoom is chosen. Other modes change nothing.
    void ImpostaZoomMode(int Modo);
    [[nodiscard]] int ZoomMode() const;
    /// The user's choice of ZoomIntera or ZoomLarghezza as a lasting one.
    void ScegliAdattamento(int Modo);
    void LasciaAdattamento();  ///< its end: the scale of the beginning again
    [[nodiscard]] bool Adattato() const { return ZoomMode() != ZoomLibero; }
    [[nodiscard]] int Zoom() const;  ///< percent on view, the fitted one too

    // ---- text
    [[nodiscard]] Selezione Scelta() const;
    [[nodiscard]] QString TestoScelto() const;
    void SelezionaTutto();
    void Copia();  ///< the selection, if there is one, into the clipboard

    // ---- search
    void ApriRicerca();
    void ChiudiRicerca();
    /// To the next or the former occurrence, round the ends of the document; opens an empty search instead.
    void CercaSuccessivo();
    void CercaPrecedente();

Q_SIGNALS:
    void PaginaCambiata(int Pagina);   ///< PaginaInVista has changed, whoever moved it
    void ZoomCambiato(int Percento);   ///< Zoom has changed, by hand or by the window's size
    void AdattamentoScelto(int Modo);  ///< a lasting choice; ZoomLibero at its end

protected:
    void keyPressEvent(QKeyEvent* Evento) override;
    bool event(QEvent* Evento) override;
    void changeEvent(QEvent* Evento) override;

private:
    void Descrivi();
    void AnnunciaScelta();
    [[nodiscard]] qsizetype InizioRicerca() const;
    void Trova(const QString& Testo, qsizetype Da);
    void Cerca(const QString& Testo);
    void RipetiRicerca();
    void VaiATrovata(bool Avanti);
    [[nodiscard]] std::function<void()> ComandoDi(const QKeyEvent* Evento);

    /// Pages, and what they were made of.
    struct Disposta
    {
        Documento Doc;
        Carta Foglio;
        Impaginazione Pagine;
    };
    /// A document on pages: those on view or those that were asked for last, where they are of the same one.
    [[nodiscard]] const Impaginazione& Disponi(const Documento& Doc);
    [[nodiscard]] bool Vale(const Disposta& Quale, const Documento& Doc) const;

    Superficie Surface;
    Carta Sheet;
    Disposta Vista;                  ///< on view
    std::optional<Disposta> Pronta;  ///< asked for and not yet on view
    FogliStampa* Fogli = nullptr;
    BarraRicerca* Barra = nullptr;
    QLabel* Margine = nullptr;  ///< the line above the sheets
    QList<Selezione> Trovate;
    qsizetype Corrente = -1;  ///< among Trovate
};
