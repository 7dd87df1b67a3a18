// The print surface: the operations a document is composed with, recorded as a list of blocks.
//
// It knows no font metrics and no paper: the paginator, the preview and the exports read the Documento.
// The numbers of alignments and cell attributes are part of the interface and keep their values.
#pragma once

#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
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

/// Attributes of a table, a column or a cell, by their number in the surface's interface.
enum class AttrTabella {
    Righe = 1,
    Colonne = 2,
    LarghezzaColonna = 13,  ///< text with a unit, "9cm"
    Unione = 17,            ///< columns that a cell spans
    Testo = 18,
    Allinea = 19,
    FontNome = 23,
    FontDimensione = 24,  ///< points
    Grassetto = 25,
    Corsivo = 26,
    AllineaTesto = 31,  ///< of a whole column
};

/// A font as the composition asks for it. Size in points.
struct Carattere
{
    QString Nome = QStringLiteral("Times New Roman");
    double Punti = 12.0;
    bool Grassetto = false;
    bool Corsivo = false;
    bool Sottolineato = false;

    friend bool operator==(const Carattere&, const Carattere&) = default;
};

/// Text in one font. Runs of blanks are layout and are kept; "\n" breaks the line inside a row.
struct Tratto
{
    QString Testo;
    Carattere Font;
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

/// One row of text, ended by its paragraph mark. An empty one is a blank row in the font current then.
struct Paragrafo
{
    Allineamento Allinea = Allineamento::Sinistra;
    std::vector<Tratto> Tratti;
    Carattere Font;  ///< gives an empty paragraph its height
    Rientri Spazi{};
    bool NuovaPagina = false;  ///< a page begins with it
    bool ConSeguente = false;  ///< no page ends with it
    bool Intera = false;       ///< no page divides it

    [[nodiscard]] QString Testo() const;
};

/// One cell, all attributes resolved (a cell's beats its column's, a column's the table's).
struct Cella
{
    QString Testo;
    Allineamento Allinea = Allineamento::Sinistra;
    Carattere Font;
    int Unione = 1;  ///< columns it covers, itself included
};

/// A table, widths in centimetres.
struct Tabella
{
    std::vector<double> LarghezzeCm;
    std::vector<std::vector<Cella>> Righe;  ///< a covered cell stays, empty
    int Bordo = 0;
    bool ConSeguente = false;  ///< no page ends with its last row
};

using BloccoDocumento = std::variant<Paragrafo, Tabella>;

/// The sheet, in millimetres; A4 upright where nothing else is said. The margins are the document's.
struct Carta
{
    double LarghezzaMm = 210.0;
    double AltezzaMm = 297.0;

    friend bool operator==(const Carta&, const Carta&) = default;
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
};

/// Centimetres of a text with a unit: "2cm", "1.4cm" (point or comma), "10mm", "0.5in"; a bare number is
/// twips, 1440 to the inch. Blanks around number and unit and the case of the unit do not matter.
/// @throws Errore 13 when it is none; a sign or an exponent makes none
[[nodiscard]] double CentimetriDi(QStringView Misura);

/// Records a document through the named operations.
///
/// Order of writing: `Text` continues the current row; `Paragraph(t)` writes t and ends the row, so that
/// an empty paragraph after Text only ends that row, and with nothing pending gives one blank row.
/// A row takes the alignment current when it begins, a run its font. "\r\n" and "\r" are recorded as "\n";
/// control characters and what stands for no character are left out, half a surrogate pair is U+FFFD.
///
/// A table ends a pending row first, and is recorded at EndTable: text written meanwhile stands above it.
/// Attributes of a table may be set in any order until EndTable; cells can be read back until then; the
/// font current at StartTable is the table's.
///
/// Writing text or opening a table while no document is open opens one, as StartDoc does.
class Superficie
{
public:
    Superficie();
    ~Superficie();
    Superficie(Superficie&&) noexcept;
    Superficie& operator=(Superficie&&) noexcept;

    // ---- document
    void StartDoc();  ///< discards the former content; margins, fonts and running line stay
    void EndDoc();    ///< ends a pending row; an open table is ended
    [[nodiscard]] bool InCorso() const { return Aperto; }
    [[nodiscard]] int Iniziati() const { return Inizi; }  ///< documents begun so far
    /// Blocks ended so far: a pending row and an open table are not among them.
    [[nodiscard]] const Documento& Contenuto() const { return Doc; }

    // ---- text
    /// Rich text, which begins with "{\rtf", is read: its paragraphs follow in its own fonts and alignments,
    /// and leave those of the surface as they are.
    void Paragraph(const QString& Testo);
    /// A "\n" inside breaks the line but not the row; an empty text does not begin a row.
    void Text(const QString& Testo);
    void FontName(const QString& Nome);
    void FontSize(double Punti);
    void FontBold(bool Attivo);
    void FontUnderline(bool Attivo);  ///< of rows of text; cells have none
    void TextAlign(Allineamento Valore);
    void SpaceBefore(double Punti);  ///< room above the row that begins next, and no other
    void SpaceAfter(double Punti);   ///< room below the row being written; nothing between two rows
    /// What follows begins on the page where the row being written ends or, between two rows, what was
    /// written last.
    void KeepNext();
    void KeepTogether();  ///< the row being written stands on one page; nothing between two rows

    // ---- page set-up; texts with a unit. @throws Errore 13
    void MarginTop(const QString& Misura);
    void MarginLeft(const QString& Misura);
    void MarginBottom(const QString& Misura);
    void MarginRight(const QString& Misura);
    void PageFooter(const QString& Testo);
    void HdrFontName(const QString& Nome);
    void HdrFontSize(double Punti);

    // ---- tables
    void StartTable();  ///< an open table is ended first; the new one has no rows and no columns
    /// Records the table. One without rows or without columns leaves nothing on the document; a span that
    /// passes the last column ends there. Does nothing without an open table.
    void EndTable();
    void TableBorder(int Bordo);  ///< of the open table, 0 no lines; does nothing without one

    /// Sets an attribute of cells Riga..UltimaRiga x Colonna..UltimaColonna, rows and columns from 1.
    ///
    /// Empty row: of whole columns; empty row and column: of the table; empty column: of all cells that
    /// the rows have now. Empty last ones: the first ones. A width belongs to its column whatever the row,
    /// and is an inch where none was set. Rows and columns (attributes 1, 2) take no indices; they grow or
    /// cut the table and keep what remains. Allinea and AllineaTesto do the same thing; of two calls on the
    /// same target the later one holds.
    /// @throws Errore 9 outside the table, 13 a value of the wrong type, 5 without an open table or for a
    ///         number that means nothing to the attribute; the table is then unchanged
    void TableCell(AttrTabella Attributo, std::optional<int> Riga, std::optional<int> Colonna,
                   std::optional<int> UltimaRiga, std::optional<int> UltimaColonna, const QVariant& Valore);
    /// The common short forms.
    void TableCell(AttrTabella Attributo, const QVariant& Valore);                    ///< the table
    void ColonnaTabella(AttrTabella Attributo, int Colonna, const QVariant& Valore);  ///< a whole column
    void CellaTabella(AttrTabella Attributo, int Riga, int Colonna, const QVariant& Valore);
    /// Reads an attribute back from the open table as it will hold for the cell, the column (empty row) or
    /// the table (empty row and column); alignments as numbers, widths as text. @throws Errore 9, 5
    [[nodiscard]] QVariant TableCell(AttrTabella Attributo, std::optional<int> Riga = {},
                                     std::optional<int> Colonna = {}) const;

    // ---- preview state
    /// Pages of the finished document; 0 while no paginator is attached or the document is open.
    [[nodiscard]] int PageCount() const;
    std::function<int(const Documento&)> Impaginatore;
    int BackColor = 0xFFFFFF;  ///< colour behind the preview pages, 0xBBGGRR; -1 the system's window colour
    int PreviewPage = 1;
    int Zoom = 80;  ///< percent
    QString Tag;    ///< page shown in the preview, as text

    // ---- export of the composition, for whoever writes it
    QString ExportFile;    ///< empty: none
    int ExportFormat = 4;  ///< 4 word processor, 3 HTML

private:
    struct TabellaAperta;
    void Accoda(const QString& Testo);
    void ChiudiRiga();
    void ApriSeServe();
    [[nodiscard]] TabellaAperta& Corrente() const;  ///< @throws Errore 5

    Documento Doc;
    bool Aperto = false;
    int Inizi = 0;
    Carattere Font;
    Allineamento Allinea = Allineamento::Sinistra;
    double SopraSeguente = 0.0;
    std::optional<Paragrafo> Riga;  ///< the row that Text has begun
    std::unique_ptr<TabellaAperta> Aperta;
};
