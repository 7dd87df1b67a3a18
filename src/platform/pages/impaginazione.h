// Pages of a composed document: where each line stands, how a page is painted, how it becomes a PDF.
//
// Layout is reckoned on one fixed device of 1200 dots an inch with unhinted fonts of the package, so that
// lines and pages break alike on every screen, without a screen, on a printer and in a PDF. Needs a
// QGuiApplication, whatever its platform.
#pragma once

#include "platform/document/documento.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class QPagedPaintDevice;
class QPainter;

/// A stretch of the text stream: characters Da..A, A excluded. Either end may be the first.
struct Selezione
{
    qsizetype Da = 0;
    qsizetype A = 0;

    [[nodiscard]] bool Vuota() const { return Da == A; }
    friend bool operator==(const Selezione&, const Selezione&) = default;
};

/// A rectangle on a page; pages from 1, millimetres from the sheet's upper left corner.
struct RettangoloPagina
{
    int Pagina = 0;
    QRectF Mm;
};

/// One line as it stands on a page: of a paragraph or of a cell. Rectangle in millimetres from the sheet's
/// upper left corner, as wide as its text and as high as its line.
struct RigaImpaginata
{
    QRectF Mm;
    double BaseMm = 0.0;      ///< y of the baseline
    qsizetype Inizio = 0;     ///< place of its first character in the text stream
    qsizetype Lunghezza = 0;  ///< characters, the blanks where it was broken included; 0 for a blank row
};

/// The pages of a document.
///
/// Paragraphs flow in order; one of several lines leaves at least two on either side of a break. A table
/// stands from the left margin with the widths of its columns; one that is wider than the text area is
/// made narrower in proportion. A column that is too narrow for one of its numbers takes the room
/// from the others; a word wider than its cell is broken where the cell ends, so that columns never
/// overlap. A row is split only when it is taller than a page. A table that begins with a row of headings
/// and a blank one repeats them on each following page; one without headings stays whole while it takes
/// less than half a page, and its last row stands with the one above it, blank rows apart. A row of rules
/// ("____") stands with the row above and the row below it, and the last line of the document does not
/// stand alone on the last page. Blank rows that meet the end of a page take no room.
///
/// A document that is to take one page and takes two is tightened by the least that does it; one that would
/// still take two is left as it is. The picture of its head stands on the first page, whose text begins below
/// it; one that cannot be read is none.
///
/// Runs of blanks keep their width. Those that lead a line shrink as far as its text would otherwise not
/// fit. Indents give way where less than two centimetres would be left of a line; the first tab of a
/// paragraph whose first line hangs leads to its left indent.
///
/// Text stream: the text of the document in order, without running lines and repeated headings. A
/// paragraph ends with "\n". Cells are divided by "\t", a row ends with "\n", a blank one is "\n" alone;
/// covered cells are left out. A line break inside a paragraph or a cell is QChar::LineSeparator.
/// Places lie between characters, 0 to Testo().size(); places outside are moved to the nearest end, and
/// pages outside 1..NumeroPagine() have no lines.
class Impaginazione
{
public:
    Impaginazione();  ///< one empty sheet
    explicit Impaginazione(const Documento& Doc, const Carta& Foglio = {});
    ~Impaginazione();
    Impaginazione(Impaginazione&&) noexcept;
    Impaginazione& operator=(Impaginazione&&) noexcept;

    // ---- pages
    [[nodiscard]] int NumeroPagine() const;  ///< at least 1
    /// How far a document that is to take one page was tightened, see StrettezzaDi; 0 not at all.
    [[nodiscard]] int Grado() const;
    [[nodiscard]] Carta Foglio() const;
    [[nodiscard]] QSizeF DimensioneMm() const;
    [[nodiscard]] QRectF AreaTestoMm() const;  ///< within the margins, the same on each page

    // ---- painting
    /// Paints the text and the rules of a page, not the sheet. The painter's origin is the sheet's upper
    /// left corner and its unit a millimetre: scale it by the dots a millimetre takes on its device. Text
    /// is painted as text, in black. Does nothing for a page that is not there.
    void DisegnaPagina(QPainter& Pittore, int Pagina) const;
    /// Paints pages Da..A on a printer or a PDF, from its first, still unused page on. Sheet and margins
    /// of the device are left as they are: the sheet's corner is put on the device's.
    /// @throws Errore 482 when the device refuses to be painted on or to begin a page
    void Stampa(QPagedPaintDevice& Dispositivo, int Da, int A) const;

    // ---- text
    [[nodiscard]] const QString& Testo() const;
    [[nodiscard]] const std::vector<RigaImpaginata>& Righe(int Pagina) const;
    /// Stretch of the text stream that stands on a page.
    [[nodiscard]] Selezione TestoDiPagina(int Pagina) const;
    /// Page of a place of the text stream, from 1.
    [[nodiscard]] int PaginaDi(qsizetype Posto) const;

    /// Place nearest to a point of a page: on the line under it or else the nearest one.
    [[nodiscard]] qsizetype PostoIn(int Pagina, QPointF Mm) const;
    /// True when the point is on a line's text, for the pointer's shape.
    [[nodiscard]] bool SulTesto(int Pagina, QPointF Mm) const;
    /// Where a caret at the place stands; no width.
    [[nodiscard]] RettangoloPagina Cursore(qsizetype Posto) const;
    /// What is to be tinted for a selection, one rectangle a line.
    [[nodiscard]] QList<RettangoloPagina> Rettangoli(const Selezione& Scelta) const;
    /// The word, or the run of blanks or of signs, around a place: a double click.
    [[nodiscard]] Selezione ParolaIn(qsizetype Posto) const;
    /// The whole cell or paragraph around a place, without its end mark: a triple click.
    [[nodiscard]] Selezione BloccoIn(qsizetype Posto) const;
    [[nodiscard]] Selezione Tutto() const;

    /// The selection as plain text for the clipboard. Tabs divide cells and "\n" ends rows; a line break
    /// inside a cell is a blank when the selection leaves the cell, so that a row stays one row where it
    /// is pasted. Blanks at line ends are left out.
    [[nodiscard]] QString TestoDi(const Selezione& Scelta) const;

    /// All occurrences, in order, not overlapping. Without regard to case; one blank in what is sought stands
    /// for any run of blanks or a line break. An empty or blank text has none.
    [[nodiscard]] QList<Selezione> CercaTutte(const QString& Cercato) const;

    // ---- PDF
    /// Writes all pages as a PDF with embedded fonts, selectable text, its title, the document's author and
    /// subject and its language, Italian. The file appears whole or not at all; one that was there is
    /// replaced.
    /// @throws Errore 61, 75, 76 as the file system refuses; what was there then stays
    void ScriviPdf(const QString& Percorso, const QString& Titolo) const;
    [[nodiscard]] QByteArray Pdf(const QString& Titolo) const;  ///< the bytes of such a file

private:
    struct Impaginata;
    std::unique_ptr<Impaginata> Dati;
};
