// The column at the left of a grid: rows are selected and dragged by it.
#pragma once

#include <QBasicTimer>
#include <QHeaderView>
#include <QList>
#include <QSet>

#include <optional>

class Griglia;
class VistaGriglia;

/// A click selects a row, with Ctrl one more, with Shift the rows up to it; a click on a selected row
/// lets it go. Rows are kept in the order of the clicks.
class SelettoreRighe : public QHeaderView
{
public:
    SelettoreRighe(Griglia* Intera, VistaGriglia* DiVista);

    [[nodiscard]] const QList<int>& Scelte() const { return Ordine; }
    [[nodiscard]] bool Scelta(int Riga) const { return Insieme.contains(Riga); }
    void Scegli(int Riga);
    void Togli(int Riga);
    void Scambia(int Riga);
    /// The keyboard went on from a row to its neighbour: selected are the rows from where it began.
    void Estendi(int Da, int A);
    void Azzera();
    void TuttaLaTabella(int Righe);
    /// Forgets selected rows from this number on.
    void Tronca(int Righe);

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
    QList<int> Ordine;
    QSet<int> Insieme;
    int Ancora = -1;   ///< row of the last plain click, where a range begins
    int Estremo = -1;  ///< row that the keyboard has brought a range to
    int Premuta = -1;
    bool DaTogliere = false;  ///< the pressed row was selected: a release without a drag lets it go
    QPoint Inizio;
    bool Trascinabile = false;
    bool Trascina = false;
    int UltimaY = 0;
    std::optional<int> PostoLinea;
    QBasicTimer Scorrimento;
};
