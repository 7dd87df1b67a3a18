// How large the letters of a window are beside those that it was designed for.
#pragma once

#include <QFontInfo>
#include <QWidget>

#include <algorithm>
#include <initializer_list>

namespace aspetto {

/// @return 1 up to letters of 10 points, the design's, and more in proportion beyond them
[[nodiscard]] inline double RapportoDelleLettere(const QWidget* Finestra)
{
    constexpr double Disegno = 10;
    return std::max(1.0, QFontInfo(Finestra->font()).pointSizeF() / Disegno);
}

/// A size in pixels of which either side that is still the design's grows with the letters; a side that the
/// user gave stays.
[[nodiscard]] inline QSize CresciutaConLeLettere(QSize Pixel, QSize Chiesta, QSize Disegno,
                                                 const QWidget* Finestra)
{
    const double Rapporto = RapportoDelleLettere(Finestra);
    if (Chiesta.width() == Disegno.width())
        Pixel.setWidth(qRound(Pixel.width() * Rapporto));
    if (Chiesta.height() == Disegno.height())
        Pixel.setHeight(qRound(Pixel.height() * Rapporto));
    return Pixel;
}

/// Lets the limits that the design gave to fields, in pixels, grow with larger letters. Right behind setupUi,
/// once: what code reckons from the font is not for it.
inline void MisuraConLeLettere(std::initializer_list<QWidget*> Campi)
{
    for (QWidget* Campo : Campi) {
        const double Rapporto = RapportoDelleLettere(Campo);
        const auto Cresciuta = [Rapporto](int Lato) {
            return Lato >= QWIDGETSIZE_MAX ? Lato : qRound(Lato * Rapporto);
        };
        const QSize Minima = Campo->minimumSize();
        const QSize Massima = Campo->maximumSize();
        Campo->setMaximumSize(Cresciuta(Massima.width()), Cresciuta(Massima.height()));
        Campo->setMinimumSize(Cresciuta(Minima.width()), Cresciuta(Minima.height()));
    }
}

}  // namespace aspetto
