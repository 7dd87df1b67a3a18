// Where the sheets of a preview stand: one below the other, reckoned without a widget.
#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>
#include <QSizeF>

/// A point of a sheet; pages from 1, millimetres from its upper left corner, which may lie outside it.
struct PuntoFoglio
{
    int Pagina = 1;
    QPointF Mm;
};

/// Sheets of one size in a vertical row, in pixels of the screen from the upper left corner of the row.
/// Sheets narrower than the window stand in its middle.
class DisposizioneFogli
{
public:
    static constexpr int Margine = 16;  ///< around the row
    static constexpr int Luce = 12;     ///< between two sheets

    DisposizioneFogli() = default;
    /// @param Pagine from 1 up
    /// @param Percento of the true size at 96 dots an inch
    DisposizioneFogli(QSizeF FoglioMm, int Pagine, double Percento, QSize Finestra);

    [[nodiscard]] static double PixelPerMm(double Percento);
    /// Largest scale in percent at which a whole sheet fits the window.
    [[nodiscard]] static double PercentoAdatto(QSizeF FoglioMm, QSize Finestra);
    /// Largest scale in percent at which a sheet is as wide as the window, its margins included.
    [[nodiscard]] static double PercentoLarghezza(QSizeF FoglioMm, QSize Finestra);

    [[nodiscard]] QSize Misura() const;  ///< of the row with its margins
    [[nodiscard]] QRect Foglio(int Pagina) const;
    /// Page under a height of the row; between two sheets the one below, beyond the ends the nearest.
    [[nodiscard]] int PaginaA(int Y) const;
    /// Page of which a stretch of heights shows most, the first of equals.
    [[nodiscard]] int PiuVisibile(int Da, int A) const;
    [[nodiscard]] PuntoFoglio InMm(QPointF Punto) const;  ///< on the page that PaginaA tells
    [[nodiscard]] QPointF InPixel(const PuntoFoglio& Punto) const;
    [[nodiscard]] double Scala() const { return Fattore; }  ///< pixels a millimetre

private:
    QSize Lati;  ///< of a sheet
    int Quanti = 1;
    int Sinistra = Margine;
    double Fattore = 1.0;
};
