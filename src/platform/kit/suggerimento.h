// The grey hint of an empty box, or of a list without rows.
#pragma once

class QWidget;

/// Mixes the colour of a box's hint from its own: desktops that give dark colours often leave that one black.
void SuggerisciLeggibile(QWidget* Box);
