// The notes worked on last, as desktop and frame offer them: opened, taken out, listed in a menu.
#pragma once

#include "core/modRecenti.h"

class QMenu;
class QWidget;

/// Opens a note of the list, or brings its window to the front. One that is gone is told and leaves the list;
/// where its whole folder is gone the user is asked, since a stick or a share may come back; one whose disk
/// does not answer stays.
void ApriRecente(const NotaRecente& Nota);

/// Puts the list at the end of a menu, behind a line of its own, each time anew; what it held of it goes. A
/// digit opens each of them. An empty list is said so.
/// @param Prima asked before a note is opened; false keeps what is there
void MettiRecenti(QMenu* Tendina, bool (*Prima)());

/// Shows the list alone as a menu, its first note under the hand.
/// @param Sotto the menu hangs below it, or stands in the middle of its window where it is not on view
void MostraMenuRecenti(QWidget* Sotto, bool (*Prima)());
