// What the tests of layout measure and see.
#pragma once

#include "platform/pages/impaginazione.h"

#include <QImage>
#include <QPainter>

#include <cmath>

namespace disegni {

constexpr double VicinoMm = 0.05;

inline bool Vicini(double Uno, double Altro)
{
    return std::abs(Uno - Altro) < VicinoMm;
}

/// A page painted at so many dots an inch on white.
inline QImage Disegnata(const Impaginazione& Fatta, int Pagina, double Dpi)
{
    const double PuntiPerMm = Dpi / 25.4;
    QImage Foglio((Fatta.DimensioneMm() * PuntiPerMm).toSize(), QImage::Format_RGB32);
    Foglio.fill(Qt::white);
    QPainter Pittore(&Foglio);
    Pittore.scale(PuntiPerMm, PuntiPerMm);
    Fatta.DisegnaPagina(Pittore, Pagina);
    return Foglio;
}

/// Dark dots of a rectangle in millimetres.
inline int Scuri(const QImage& Foglio, const QRectF& Mm, double Dpi)
{
    const double PuntiPerMm = Dpi / 25.4;
    const QRect Dove =
        QRectF(Mm.topLeft() * PuntiPerMm, Mm.size() * PuntiPerMm).toAlignedRect().intersected(Foglio.rect());
    int Quanti = 0;
    for (int Y = Dove.top(); Y <= Dove.bottom(); ++Y)
        for (int X = Dove.left(); X <= Dove.right(); ++X)
            Quanti += qGray(Foglio.pixel(X, Y)) < 128 ? 1 : 0;
    return Quanti;
}

}  // namespace disegni
