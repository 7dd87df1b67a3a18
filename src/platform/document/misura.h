// Measures as texts.
#pragma once

#include <QStringView>

/// Centimetres of a text with a unit: "2cm", "1.4cm" (point or comma), "10mm", "0.5in"; a bare number is
/// twips, 1440 to the inch. Blanks around number and unit and the case of the unit do not matter.
/// @throws Errore 13 when it is none; a sign or an exponent makes none
[[nodiscard]] double CentimetriDi(QStringView Misura);
