// The column at the left of a grid: rows are selected and dragged by it.
#pragma once

#include <QBasicTimer>
#include <QHeaderView>
#include <QList>
#include <QSet>

#include <optional>

class Griglia;
class VistaGriglia;

/// A click selects a row alone, with Ctrl one more or lets it go, with Shift the rows from the last plain
/// click up to it in the place of those that the Shift before had selected; a click on the only selected row
/// lets it go. Rows are kept in the order of the clicks, by their keys: a row stays selected wherever others
/// move it.
class SelettoreRighe : public QHeaderView
{
public:
    SelettoreRighe(Griglia* Intera, VistaGriglia* DiVista);

    [[nodiscard]] QList<int> Scelte() const;
    [[nodiscard]] bool Vuoto() const { return Ordine.isEmpty(); }
    [[nodiscard]] bool Scelta(int Riga) const;
    void Scegli(int Riga);
    void Togli(int Riga);
    void Scambia(int Riga);
    /// The keyboard went on from a row to its neighbour: selected are the rows from where it began.
    void Estendi(int Da, int A);
    void Azzera();
    /// This row and no other.
    void ScegliSola(int Riga);
    void TuttaLaTabella();
    /// Forgets selected rows that are no more.
    void TogliSparite();

    void ConsentiTrascina(bool Si) { Trascinabile = Si; }
    [[nodiscard]] bool InTrascinamento() const { return Trascina; }
    void AnnullaTrascinamento();
    /// Where the dragged rows would land, as a vertical position in the viewport.
    [[nodiscard]] std::optional<int> Linea() const { return PostoLinea; }

protected:
    void paintSection(QPainter* Pennello, const QRect& Riquadro, int Riga) const override;
    void mousePressEvent(QMouseEvent* Evento) override;
    void mouseMoveEvent(QMouseEvent* Evento) override;
    void mouseReleaseEvent(QMouseEvent* Evento) override;
    void mouseDoubleClickEvent(QMouseEvent* Evento) override;
    void contextMenuEvent(QContextMenuEvent* Evento) override;
    void timerEvent(QTimerEvent* Evento) override;
    QSize sizeHint() const override;

private:
    void ScegliFino(int Riga);
    void Aggiungi(int Riga);
    [[nodiscard]] int RigaDi(quint64 Chiave) const;  ///< -1 when it has gone
    void Cambiata();
    [[nodiscard]] int RigaVera(int Y) const;
    /// The row at this height, the row count on the empty one; none on no row.
    [[nodiscard]] std::optional<int> Destinazione(int Y) const;
    /// The row before which the selected ones stand when the first takes this number, counted without them.
    [[nodiscard]] int RigaSegnata(int Numero) const;
    void SeguiPuntatore(int Y);
    void Rilascia(const QPoint& Punto);

    Griglia* Padrona;
    VistaGriglia* Vista;
    // Keys of rows, not numbers.
    QList<quint64> Ordine;
    QSet<quint64> Insieme;
    QList<quint64> Tratto;  ///< those that the range in course has added
    quint64 Ancora = 0;     ///< row of the last plain click, where a range begins
    quint64 Estremo = 0;    ///< row that the keyboard has brought a range to
    int Premuta = -1;
    bool GiaScelta = false;  ///< the pressed row was selected: what the click means waits for a drag
    QPoint Inizio;
    bool Trascinabile = false;
    bool Trascina = false;
    int UltimaY = 0;
    std::optional<int> PostoLinea;
    QBasicTimer Scorrimento;
};
