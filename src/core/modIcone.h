// The user's icons: what kr5.ini holds of them, and where they stand on the desktop.
#pragma once

#include "platform/base/tabellarighe.h"

#include <QPoint>
#include <QString>

enum ColonnaIcona { IconaTitolo, IconaCollegamento, IconaFigura, ColonneIcona };

/// One row per icon, for the session; shared by the desktop and the settings.
inline TabellaRighe IconeUtente{ColonneIcona};

/// Reads the section "desktop" of kr5.ini anew, up to the first icon of which label, target or picture is
/// missing. The file stands beside the program, or in the user folder where the program folder has none.
void LeggiIconeUtente();

/// Upper left corner of the picture of an icon, in pixels: six in the first row, which starts further right
/// than the following ones.
[[nodiscard]] QPoint PostoIcona(int Riga);
