// The grid: rows of a TabellaRighe (or of a recordset) with footers, a row selector and cell editing.
#pragma once

#include "platform/base/tabellarighe.h"
#include "platform/database/recordset.h"
#include "platform/kit/campo.h"

#include <QIcon>
#include <QList>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QTableView;

/// What the user wants done with the selected rows, by its usual keys.
enum class ComandoRighe {
    Taglia,   ///< Ctrl+X
    Copia,    ///< Ctrl+C
    Incolla,  ///< Ctrl+V
    Annulla,  ///< Ctrl+Z
};

/// A column of a grid.
struct ColonnaGriglia
{
    QString Titolo;
    QString Spiegazione;                    ///< said over the title and of the open cell; empty: nothing
    int Campo = 0;                          ///< column of the table
    QString NomeCampo;                      ///< column of the recordset
    int Caratteri = 10;                     ///< width in average characters
    int Larghezza = 0;                      ///< width in pixels, in their place; 0: the characters count
    Qt::Alignment Allinea = Qt::AlignLeft;  ///< of the cells, their title and the footer
    bool Visibile = true;
    bool Modificabile = false;
    bool Stira = false;      ///< takes the room that is left, never less than its own width
    QString Filtro;          ///< keys of the cell editor, as FiltroTasti's kinds; empty: everything
    int Massimo = 0;         ///< characters the editor takes, 0 no limit
    bool Maiuscole = false;  ///< letters are raised as they are typed or pasted
    /// Text of a cell; without it CStr shows the value.
    std::function<QString(const QVariant& Valore, int Riga)> Mostra;
    /// What is amiss with a cell; empty: nothing. It is set off, with a sign beside the text, and says so in
    /// its tool tip and to a screen reader.
    std::function<QString(int Riga)> Segno;
    /// Picture before the text; the room of one is kept in each row of a column that has them.
    std::function<QIcon(int Riga)> Immagine;
    /// Checks a typed text before it is written. False refuses and keeps the cell open. A number from whose
    /// typing the filter has kept characters out is shown to the user once before. In a row that is not made
    /// yet, `Riga` is the row count. An error goes to the report installed by InstallaUltimaRete and counts
    /// as a refusal.
    std::function<bool(int Riga, const QString& Testo)> Convalida;
    /// What is written for a typed text; without it the text as a number where it is one and the filter is
    /// numeric, else the text.
    std::function<QVariant(const QString& Testo)> Valore;
};

/// A grid over rows that somebody else owns. The table is the truth, no text of it is kept: after changing
/// it by code call Rilega; what the user types goes through `Convalida` and `Valore` of its column into it.
///
/// Keys: typing, F2 and a double click open a cell, Enter and Tab close it and go to the next one that can
/// be written (behind the last cell, to the empty row), Esc gives the old text back. With no cell open:
/// Del asks for a deletion, Ctrl+C copies the cell's text, Shift+Space selects the row or lets it go,
/// Shift+Up and Shift+Down select row after row, Ctrl+A selects all, Esc lets the selected rows go, Space on
/// a cell that cannot be written counts as a click on it. F6 leaves the grid for the next control, Shift+F6
/// for the one before, from an open cell too. Where the form takes commands on rows (ConsentiComandi),
/// Ctrl+X, V, Z, and Ctrl+C with rows selected, are handed to it. The menu key and the right button offer the
/// same, unless the form has a menu of its own (MenuContestuale).
///
/// In cells of dates (filter "d") 6 or 8 digits without separators are a date; a valid one is written as
/// gg/mm/aaaa, and one that is refused gives way to what the cell held. A click, a move or a command that
/// closes a cell commits it like Enter does.
class Griglia : public QWidget, public Concludibile
{
    Q_OBJECT

public:
    explicit Griglia(QWidget* Padre = nullptr);
    ~Griglia() override;

    // ---- source
    void ImpostaColonne(const QList<ColonnaGriglia>& Colonne);
    /// As they were set, whatever the user has dragged.
    [[nodiscard]] const QList<ColonnaGriglia>& Colonne() const;
    /// Shows a table, which must live as long as it is shown.
    void Lega(TabellaRighe* Tabella);
    /// Shows the rows of a recordset, read-only, fetched as they are painted.
    void Lega(const Recordset& Righe);
    /// Repaints after the rows were changed by code; current row and first visible row stay where they can.
    /// Selected are the same rows as before, wherever they stand now; those that are no more drop out. It
    /// does no work per row as long as none is selected.
    void Rilega();
    [[nodiscard]] int Righe() const;
    /// Lets the user type into an empty row behind the last one; the row is made at its first cell.
    void ConsentiNuove(bool Si);
    /// One grey sentence shown while there are no rows.
    void FraseVuota(const QString& Testo);

    // ---- rows
    /// None in an empty grid and on the empty row behind the last one.
    [[nodiscard]] std::optional<int> RigaCorrente() const;
    /// Column of the current cell, as in ImpostaColonne; -1 none.
    [[nodiscard]] int ColonnaCorrente() const;
    /// Makes a row current and scrolls to it; the row count means the empty row. `Colonna` -1 keeps the
    /// column. An open cell is committed first: if it refuses, nothing moves. LasciaRiga is not asked.
    void ImpostaRigaCorrente(int Riga, int Colonna = -1);
    /// Makes a cell current and opens it with its text selected, for the user to write there next; the focus
    /// goes there. Until he has written, Ctrl+Z closes it and is the grid's. An open cell is committed first:
    /// if it refuses, nothing moves.
    void ApriCella(int Riga, int Colonna);
    [[nodiscard]] int PrimaRiga() const;
    void ImpostaPrimaRiga(int Riga);
    /// Numbers that the selected rows have now, in the order of the user's clicks. A row stays selected while
    /// others are put in or taken out around it.
    [[nodiscard]] QList<int> Selezione() const;
    void AzzeraSelezione();
    void Seleziona(int Riga);
    /// Lets the selected rows go and takes the tint off the current one, until the user comes back to it.
    void TogliEvidenza();

    // ---- columns and footer
    void MostraColonna(int Colonna, bool Visibile);
    [[nodiscard]] bool ColonnaVisibile(int Colonna) const;
    void Pie(int Colonna, const QString& Testo);
    [[nodiscard]] QString TestoPie(int Colonna) const;
    /// Widths as text, to be remembered, and back.
    [[nodiscard]] QString Larghezze() const;
    /// True once the user has changed a width or the order of the columns; what only the program did is not
    /// worth remembering.
    [[nodiscard]] bool ColonneMosse() const;
    void ImpostaLarghezze(const QString& Testo);
    /// Makes columns as narrow as what they show allows, which is no choice of the user's.
    void StringiAlContenuto(const QList<int>& Colonne);
    /// Pixels at which no column on view is cut, with the row selector and the bar of many rows beside them.
    [[nodiscard]] int LarghezzaIntera() const;
    /// Pixels in which what the view shows at least stands above totals and bar, on view or not.
    [[nodiscard]] int AltezzaConTotali() const;
    /// Lets rows be dragged by the row selector, once the pointer has left the row that was pressed. The
    /// first of them takes the number of the row on which they are dropped, counted without them: a line
    /// shows where.
    void ConsentiTrascina(bool Si);
    /// Hands the keys of ComandoRighe to the form.
    void ConsentiComandi(bool Si);

    /// Commits the open cell and, when the current row was written to, asks LasciaRiga.
    [[nodiscard]] bool Concludi() override;
    /// True while a cell is open.
    [[nodiscard]] bool InModifica() const;
    [[nodiscard]] QTableView* Vista() const;
    /// Opens the menu of a row, -1 none, at a point of the screen.
    void ApriMenu(int Riga, const QPoint& Punto);
    /// Tells of Enter on a row: by its own signal where somebody listens to it, else as a double click.
    void AnnunciaInvio(int Riga);

    // ---- rules, set by the form
    // An error inside them goes to the report installed by InstallaUltimaRete and counts as a refusal.

    /// Fills a row that the user begins in the empty one.
    std::function<void(int Riga)> NuovaRiga;
    /// Checks a row before it is left. False keeps the current row on it.
    std::function<bool(int Riga)> LasciaRiga;

    // ---- further wishes of the form

    /// What the tool tip of a row says, over any of its cells; without it, or where it is empty, the text of
    /// a cell that does not fit.
    std::function<QString(int Riga)> Suggerimento;
    /// Whether a command on rows has something to do now; the menu shows it. Without it each has.
    std::function<bool(ComandoRighe Quale)> ComandoPossibile;
    /// Takes letters typed where no cell can be written; those that follow quickly come together.
    std::function<void(const QString& Lettere)> CercaLettere;

Q_SIGNALS:
    void RigaCambiata(int Riga);  ///< another row is current, by the user or by code; -1 none
    void CellaScritta(int Riga, int Colonna);
    void DoppioClic(int Riga);  ///< Enter on a grid without editing counts as one, unless Invio is connected
    void Invio(int Riga);       ///< Enter on a row of a grid without editing
    void ClicCella(int Riga,
                   int Colonna);  ///< never for the empty row; a double click on a cell that opens is two
    void ClicTitolo(int Colonna);
    void Cancella();                    ///< Del with rows selected or a current row, no cell in edit
    void Comando(ComandoRighe Quale);   ///< a key of ComandoRighe, no cell in edit
    void Trascinata(int Destinazione);  ///< selected rows dropped on this row; the count: at the end
    void TrascinataFuori();             ///< dropped inside the grid but on no row
    /// Connected, it takes the place of the grid's own menu. Row -1 none; the point is the screen's.
    void MenuContestuale(int Riga, const QPoint& Punto);

protected:
    /// A screen reader meets the view, where the focus stands: it is called as the grid is.
    void showEvent(QShowEvent* Evento) override;
    void paintEvent(QPaintEvent* Evento) override;
    void changeEvent(QEvent* Evento) override;

private:
    struct Interno;
    std::unique_ptr<Interno> Pezzi;
};
