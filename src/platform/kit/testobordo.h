// Text that can be read over any background.
#pragma once

#include <QColor>
#include <QString>

class QPainter;
class QRect;

/// Draws a text over four copies of itself in the border colour, moved off it diagonally by a distance that
/// follows from the font's size.
/// @param Bandiere alignment and wrapping, as QPainter::drawText takes them
void TextBorder(QPainter& Pennello, const QRect& Riquadro, int Bandiere, const QString& Testo,
                const QColor& Colore, const QColor& Bordo);
