// Drawings of the program -> the pictures that stand beside it.
#pragma once

#include <QStringList>

#include <array>

class QTextStream;

/// Size of a background and side of an icon, in points.
inline constexpr int LarghezzaSfondo = 1600;
inline constexpr int AltezzaSfondo = 1000;
inline constexpr int LatoIcona = 192;

/// Sides of the icons that the system shows for the program and its files, in points.
inline constexpr std::array LatiDiSistema{16, 22, 24, 32, 48, 64, 128, 256};

/// Makes sfondi/*.jpg and icone/*.gif of the SVG drawings in the folders of the same names, and copies
/// templates.ini beside the backgrounds; or the system's own icons of the program and of its notes, in the
/// folders of a theme ("16x16/apps" and so on, "scalable/apps").
/// @param Argomenti folder of the drawings, program folder; or "--sistema", folder of the drawings, folder of
/// the theme
/// @return exit status of the program; what went wrong is written to `Errori` with its file
[[nodiscard]] int CreaImmagini(const QStringList& Argomenti, QTextStream& Errori);
