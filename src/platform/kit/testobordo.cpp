#include "platform/kit/testobordo.h"

#include <QFontInfo>
#include <QPainter>

#include <algorithm>
#include <array>
#include <utility>

void TextBorder(QPainter& Pennello, const QRect& Riquadro, int Bandiere, const QString& Testo,
                const QColor& Colore, const QColor& Bordo)
{
    constexpr int PixelPerPasso = 14;
    const int Passo = std::max(1, Pennello.fontInfo().pixelSize() / PixelPerPasso);
    Pennello.setPen(Bordo);
    for (const auto& [X, Y] :
         std::array{std::pair{-1, -1}, std::pair{1, -1}, std::pair{-1, 1}, std::pair{1, 1}})
        Pennello.drawText(Riquadro.translated(X * Passo, Y * Passo), Bandiere, Testo);
    Pennello.setPen(Colore);
    Pennello.drawText(Riquadro, Bandiere, Testo);
}
