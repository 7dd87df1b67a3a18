// A small plot of the price index between two months.
#pragma once

#include "calculators/modIstat.h"

#include <QWidget>

/// Draws the months of a series as one line, its first and last month named below, its lowest and highest
/// value at the left. Without a series it says in one grey sentence what will be here.
class GraficoIndici : public QWidget
{
    Q_OBJECT

public:
    explicit GraficoIndici(QWidget* Padre = nullptr);

    void Imposta(const QList<PuntoIndice>& Punti);
    [[nodiscard]] const QList<PuntoIndice>& Serie() const { return Punti_; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* Evento) override;
    void mouseMoveEvent(QMouseEvent* Evento) override;

private:
    [[nodiscard]] QRectF Campo() const;
    [[nodiscard]] QPointF Dove(qsizetype i) const;
    void DisegnaCornice(QPainter& Pennello) const;
    void DisegnaLinea(QPainter& Pennello) const;

    QList<PuntoIndice> Punti_;
    double Minimo = 0.0;
    double Massimo = 0.0;
};
