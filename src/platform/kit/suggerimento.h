// Hints: the grey one of an empty box, or of a list without rows.
#pragma once

#include <QString>

class QWidget;

/// A long text for a tool tip, which does not break lines by itself: at blanks, and a word that is too long
/// where it must be. Line breaks that are there stay.
[[nodiscard]] QString SuPiuRighe(const QString& Testo);

/// Mixes the colour of the hints of all boxes from theirs, now and whenever the desktop's colours change;
/// call it once at the start.
void SuggerimentiLeggibili();

/// Mixes the colour of a box's hint from its own, where it has colours that are not the program's:
/// desktops that give dark colours often leave that one black.
void SuggerisciLeggibile(QWidget* Box);
