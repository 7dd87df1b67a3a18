// The print surface: the operations a document is composed with, recorded as a list of blocks.
//
// The numbers of alignments and cell attributes are part of the interface and keep their values.
#pragma once

#include "platform/document/documento.h"
#include "platform/document/misura.h"
#include "platform/document/tabellaaperta.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>

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
    /// Rich text, which begins with "{\rtf" or with blanks before it, is read: its paragraphs and tables
    /// follow in their own fonts and alignments, and leave those of the surface as they are.
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
    /// What the document says of itself where its format has room for that; they stay like the margins.
    void Author(const QString& Nome);
    void Subject(const QString& Testo);
    /// A picture above the first page's text; it stays like the margins.
    void HeadPicture(std::optional<FiguraTesta> Figura);
    /// The document is to take one page where tightening it gets it there; stays like the margins.
    void OnePage(bool Si);

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
    /// How far a document has to be tightened to take one page; without it exports leave it as it is.
    std::function<Strettezza(const Documento&)> Stringitore;
    int BackColor = 0xFFFFFF;  ///< colour behind the preview pages, 0xBBGGRR; -1 the system's window colour
    int PreviewPage = 1;
    int Zoom = 80;  ///< percent
    QString Tag;    ///< page shown in the preview, as text

    /// What the document was to hold and does not, as a sentence without its capital; empty where nothing is
    /// missing. StartDoc empties it.
    QString Manca;

    // ---- export of the composition, for whoever writes it
    QString ExportFile;    ///< empty: none
    int ExportFormat = 4;  ///< 4 word processor, 3 HTML

private:
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
