// Buttons of a toolbar.
#pragma once

#include <QString>

class QAction;
class QToolBar;

/// Adds a button with the picture of its key, called <bar>_<key>; its action is called as the key. The Tab
/// key reaches it, and a screen reader calls it by its tooltip.
/// @param Scritta the words under the picture, where the bar shows them
QAction* AggiungiTasto(QToolBar* Barra, const QString& Chiave, const QString& Suggerimento,
                       const QString& Scritta = {});
