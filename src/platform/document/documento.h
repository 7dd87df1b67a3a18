// A composed document as plain data: paragraphs, tables, page set-up.
//
// It knows no font metrics and no sheet's pages. The surface records it, the rich text's reader yields parts
// of it, the paginator and the writers read it.
#pragma once

#include "platform/document/strettezza.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>
#include <vector>

/// Alignment of paragraphs, columns and cells.
enum class Allineamento {
    AltoSinistra = 0,
    Sinistra = 6,
    Centro = 7,
    Destra = 8,
    Giustificato = 11,
};

/// Where characters stand on their line; raised and lowered ones are smaller too.
enum class PostoRigo { Normale, Apice, Pedice };

/// A font as the composition asks for it. Size in points.
struct Carattere
{
    QString Nome = QStringLiteral("Times New Roman");
    double Punti = 12.0;
    bool Grassetto = false;
    bool Corsivo = false;
    bool Sottolineato = false;
    bool Barrato = false;  ///< struck out: it is there to be seen that it no longer counts
    PostoRigo Posto = PostoRigo::Normale;

    friend bool operator==(const Carattere&, const Carattere&) = default;
};

/// Text in one font. Runs of blanks are layout and are kept; "\n" breaks the line inside a row.
struct Tratto
{
    QString Testo;
    Carattere Font;

    friend bool operator==(const Tratto&, const Tratto&) = default;
};

/// Room around a row of text, as it was asked for; none is negative but the first line's.
struct Rientri
{
    double SinistroCm = 0.0;
    double DestroCm = 0.0;
    double PrimaRigaCm = 0.0;  ///< of the first line, from the left indent; below 0 it hangs out of it
    double SopraPunti = 0.0;
    double SottoPunti = 0.0;

    friend bool operator==(const Rientri&, const Rientri&) = default;
};

/// A tab stop of a paragraph.
struct Fermo
{
    enum Verso { Sinistra, Centro, Destra, Decimale };
    double Cm = 0.0;  ///< from the left margin (in a cell from its left edge), whatever the indent
    Verso Come = Sinistra;
    char16_t Riempie = 0;  ///< what fills the way to it, '.' or '_'; 0 nothing

    friend bool operator==(const Fermo&, const Fermo&) = default;
};

/// Distance of the lines of a paragraph.
struct Interlinea
{
    double Multipla = 1.0;     ///< of a line's own height; below 1 it counts as 1
    double AlmenoPunti = 0.0;  ///< where a line is lower
    double EsattaPunti = 0.0;  ///< whatever the line's own height; 0 leaves it

    friend bool operator==(const Interlinea&, const Interlinea&) = default;
};

/// One row of text, ended by its paragraph mark. An empty one is a blank row in the font current then.
struct Paragrafo
{
    Allineamento Allinea = Allineamento::Sinistra;
    std::vector<Tratto> Tratti;
    Carattere Font;  ///< gives an empty paragraph its height
    Rientri Spazi{};
    bool NuovaPagina = false;    ///< a page begins with it
    bool ConSeguente = false;    ///< no page ends with it
    bool Intera = false;         ///< no page divides it
    std::vector<Fermo> Fermi{};  ///< tab stops from the left; behind the last one stops are evenly spaced
    Interlinea Righe{};

    [[nodiscard]] QString Testo() const;
    friend bool operator==(const Paragrafo&, const Paragrafo&) = default;
};

/// One cell, all attributes resolved (a cell's beats its column's, a column's the table's).
struct Cella
{
    enum Lato { Alto = 1, Sinistro = 2, Basso = 4, Destro = 8 };

    QString Testo;
    Allineamento Allinea = Allineamento::Sinistra;
    Carattere Font;
    int Unione = 1;  ///< columns it covers, itself included
    int Linee = 0;   ///< its sides that are drawn, a sum of Lato; a table with a border draws all
    /// The same text in its own formats, in a table of a rich text; empty where the cell's own hold.
    std::vector<Paragrafo> Paragrafi{};

    friend bool operator==(const Cella&, const Cella&) = default;
};

/// A table, widths in centimetres.
struct Tabella
{
    std::vector<double> LarghezzeCm;
    std::vector<std::vector<Cella>> Righe;  ///< a covered cell stays, empty
    int Bordo = 0;
    bool ConSeguente = false;  ///< no page ends with its last row
    /// Of a rich text: no headings, rules and columns of amounts are told by its shape.
    bool Letterale = false;

    friend bool operator==(const Tabella&, const Tabella&) = default;
};

using BloccoDocumento = std::variant<Paragrafo, Tabella>;

/// The sheet, in millimetres; A4 upright where nothing else is said. The margins are the document's.
struct Carta
{
    double LarghezzaMm = 210.0;
    double AltezzaMm = 297.0;

    friend bool operator==(const Carta&, const Carta&) = default;
};

/// What a document says of itself beside its text; an empty one says nothing.
struct Proprieta
{
    QString Autore;
    QString Oggetto;

    friend bool operator==(const Proprieta&, const Proprieta&) = default;
};

/// A picture at the head of the first page, between the side margins. Its upper edge is DalBordoCm from the
/// sheet's, or at the top margin where that is narrower; the text begins below it, and not above its own
/// margin.
struct FiguraTesta
{
    static constexpr double DalBordoCm = 1.5;
    static constexpr double SottoCm = 0.4;  ///< room between it and the text

    QByteArray Png;
    double LarghezzaCm = 0.0;
    double AltezzaCm = 0.0;
    Allineamento Allinea = Allineamento::Sinistra;

    friend bool operator==(const FiguraTesta&, const FiguraTesta&) = default;
};

/// What was composed: blocks in order, page set-up, running line.
struct Documento
{
    double MargineAltoCm = 2.0;
    double MargineSinistroCm = 2.0;
    double MargineBassoCm = 2.0;
    double MargineDestroCm = 2.0;
    QString PiePagina;  ///< running line, "%d" stands for the page number
    Carattere FontPiePagina{QStringLiteral("Times New Roman"), 8.0};
    std::vector<BloccoDocumento> Blocchi;
    Proprieta DiSe;
    std::optional<FiguraTesta> Testa;
    bool UnaPagina = false;  ///< the pages tighten it as far as it takes to be one, where that helps
    Strettezza Stretta{};    ///< what it gives up for those who know no pages

    friend bool operator==(const Documento&, const Documento&) = default;
};

/// Upper edge of a picture at the head, from the sheet's; both in centimetres.
[[nodiscard]] double AltoDellaTesta(double MargineAltoCm);
/// The part of its size that such a picture has on a sheet whose text area is so large: less than 1 where
/// that has no room for it.
[[nodiscard]] double ParteDellaTesta(const FiguraTesta& Figura, double LarghezzaCm, double AltezzaCm);
