// Hints: the grey one of an empty box, or of a list without rows; words of the user's in a tool tip.
#pragma once

#include <QString>

class QWidget;

/// A tool tip that shows a text as it is written, also where it looks like tags.
[[nodiscard]] QString AllaLettera(const QString& Testo);

/// Mixes the colour of a box's hint from its own: desktops that give dark colours often leave that one black.
void SuggerisciLeggibile(QWidget* Box);
