// What a laid out document is made of. Lengths in dots, but for the rectangles that are handed out.
#pragma once

#include "platform/pages/stesura.h"

#include <QImage>

#include <vector>

/// A line of a passage where it is painted.
struct RigaPosata
{
    int Brano = -1;
    int Riga = 0;
    double Y = 0.0;     ///< upper edge
    bool Muta = false;  ///< not painted
};

/// The lines of one strip: of a row's cells, or of a paragraph. Places in the vector of the page's lines.
struct FasciaPagina
{
    double AltoMm = 0.0;
    double BassoMm = 0.0;
    std::size_t Prima = 0;
    std::size_t Quante = 0;
};

struct PaginaPosata
{
    std::vector<RigaImpaginata> Righe;
    std::vector<RigaPosata> Posate;    ///< of the same lines, in the same order
    std::vector<RigaPosata> Ripetute;  ///< headings, out of the text stream
    std::vector<FasciaPagina> Fasce;   ///< from the top
    std::vector<QLineF> Linee;
    std::vector<QRectF> Pieni;  ///< rules and what fills the way to tab stops
};

/// Where a line is found by its first character.
struct VoceIndice
{
    qsizetype Inizio = 0;
    int Pagina = 1;
    std::size_t Riga = 0;
};

struct Impaginazione::Impaginata
{
    Impaginata(const Documento& Doc, const Carta& SuaCarta);

    Carta Foglio;
    AreaStampa Area;
    Stesura Steso;
    std::vector<PaginaPosata> Pagine;
    std::vector<VoceIndice> Indice;  ///< all lines by their first character
    QString PiePagina;
    ::Proprieta Proprieta;
    FontMisurato FontPiePagina;
    QImage Testa;      ///< at the head of the first page; null: none
    QRectF DoveTesta;  ///< on the sheet
    int Grado = 0;     ///< how far the document was tightened, see StrettezzaDi

    [[nodiscard]] const PaginaPosata* Pagina(int Quale) const;
    /// The line that a place stands on; the end mark of a line is on it. Null when there are no lines.
    [[nodiscard]] const VoceIndice* RigaDi(qsizetype Posto) const;
    /// x of a place on a line of this page, in millimetres.
    [[nodiscard]] double XDi(const PaginaPosata& Dove, std::size_t Riga, qsizetype Posto) const;
    /// True when the place stands in a table.
    [[nodiscard]] bool InTabella(qsizetype Posto) const;
    /// Place on a line nearest to an x in millimetres.
    [[nodiscard]] qsizetype PostoNellaRiga(const PaginaPosata& Dove, std::size_t Quale, double XMm) const;

    void DisegnaRiga(QPainter& Pittore, const RigaPosata& Posata) const;
    void DisegnaPiePagina(QPainter& Pittore, int Pagina) const;
    void DisegnaTesta(QPainter& Pittore) const;

private:
    void PosaTesta(const Documento& Doc);
    void Posa(const std::vector<PostoStriscia>& Posti);
    void PosaTitoli(PaginaPosata& Dove, int Titoli) const;
    void PosaPezzo(const Pezzo& Questo, const PostoStriscia& Posto);
    void CreaIndice();
};
