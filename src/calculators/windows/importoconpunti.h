// An amount that is typed as one likes, and read with its points.
#pragma once

#include <QString>

class QLineEdit;

/// From now on the box shows its number as "1.000.000,00" once it is left, and what was typed as soon as it
/// has the focus again. Neither is a change of the box: nothing hears of it, and what was reckoned stays. A
/// text that is no number is left as it is.
void MostraConPunti(QLineEdit* Box);

/// What was typed into such a box, whatever it shows.
[[nodiscard]] QString TestoDigitato(const QLineEdit* Box);
