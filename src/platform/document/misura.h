// Measures as texts.
#pragma once

#include <QStringView>

/// An inch, of paper and of type.
inline constexpr double CmPerPollice = 2.54;
inline constexpr double MmPerPollice = 25.4;
inline constexpr double TwipPerPollice = 1440.0;
inline constexpr double PuntiTipograficiPerPollice = 72.0;

inline constexpr double MmPerCm = 10.0;
inline constexpr double TwipPerCm = TwipPerPollice / CmPerPollice;
inline constexpr double TwipPerPunto = TwipPerPollice / PuntiTipograficiPerPollice;
/// What rich text counts for a single line in a spacing by multiples, whatever its letters.
inline constexpr double RigaSemplice = 240.0;
/// Centimetres of a point of type.
inline constexpr double CmPerPunto = CmPerPollice / PuntiTipograficiPerPollice;

/// Centimetres of a text with a unit: "2cm", "1.4cm" (point or comma), "10mm", "0.5in"; a bare number is
/// twips, 1440 to the inch. Blanks around number and unit and the case of the unit do not matter.
/// @throws Errore 13 when it is none; a sign or an exponent makes none
[[nodiscard]] double CentimetriDi(QStringView Misura);
