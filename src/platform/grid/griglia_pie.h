// The footer of a grid: one row of the same columns, in bold.
#pragma once

#include <QHash>
#include <QString>
#include <QWidget>

class VistaGriglia;

class PieGriglia : public QWidget
{
public:
    PieGriglia(VistaGriglia* DiVista, QWidget* Padre);

    /// The footer shows itself as soon as it has a text.
    void Imposta(int Colonna, const QString& Testo);
    [[nodiscard]] QString Testo(int Colonna) const { return Testi.value(Colonna); }
    void Azzera();
    /// Widens the columns whose totals would be cut.
    void Allarga();
    /// Where a column's text stands, in the footer's coordinates: below the column wherever that is.
    [[nodiscard]] QRect Riquadro(int Colonna) const;
    /// What a text has of the footer: its column, and as much of the empty ones beside it as it needs.
    [[nodiscard]] QRect Spazio(int Colonna) const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* Evento) override;

private:
    void Racconta();
    /// Width that a text fills, with the air around it.
    [[nodiscard]] int Occorre(int Colonna) const;
    VistaGriglia* Vista;
    QHash<int, QString> Testi;
};
