// How large the letters of a window are beside those that it was designed for.
#pragma once

#include <QFontInfo>
#include <QWidget>

#include <algorithm>

namespace aspetto {

/// @return 1 up to letters of 10 points, the design's, and more in proportion beyond them
[[nodiscard]] inline double RapportoDelleLettere(const QWidget* Finestra)
{
    constexpr double Disegno = 10;
    return std::max(1.0, QFontInfo(Finestra->font()).pointSizeF() / Disegno);
}

}  // namespace aspetto
