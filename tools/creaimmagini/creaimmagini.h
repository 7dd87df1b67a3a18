// Drawings of the program -> the pictures that stand beside it.
#pragma once

#include <QStringList>

class QTextStream;

/// Size of a background and side of an icon, in points.
inline constexpr int LarghezzaSfondo = 1600;
inline constexpr int AltezzaSfondo = 1000;
inline constexpr int LatoIcona = 192;

/// Makes sfondi/*.jpg and icone/*.gif of the SVG drawings in the folders of the same names, and copies
/// templates.ini beside the backgrounds.
/// @param Argomenti folder of the drawings, program folder
/// @return exit status of the program; what went wrong is written to `Errori` with its file
[[nodiscard]] int CreaImmagini(const QStringList& Argomenti, QTextStream& Errori);
