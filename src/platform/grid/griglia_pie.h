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
    /// Where a column's text stands, in the footer's coordinates: below the column wherever that is.
    [[nodiscard]] QRect Riquadro(int Colonna) const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* Evento) override;

private:
    void Racconta();

    VistaGriglia* Vista;
    QHash<int, QString> Testi;
};
