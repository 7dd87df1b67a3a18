// The grey hint of an empty box.
#pragma once

class QLineEdit;

/// Mixes the colour of a box's hint from its own: desktops that give dark colours often leave that one black.
void SuggerisciLeggibile(QLineEdit* Box);
