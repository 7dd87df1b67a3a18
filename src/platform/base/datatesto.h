// The text of a masked date box, "_" standing in the places that are not filled.
#pragma once

#include <QString>

/// Without the two last places when they are not filled, so that a date with a two-digit year can be read:
/// "12/03/20__" gives "12/03/20", an empty mask gives "__/__/__".
[[nodiscard]] QString SenzaSecolo(const QString& Testo);

/// The same date with four digits of the year, for the boxes that show it so on leaving: "12/03/20__" gives
/// "12/03/2020". Any other text comes back as it is.
[[nodiscard]] QString ConSecolo(const QString& Testo);
