// Keys that are seen: behind the hint of a button, and in the menu that offers its command.
#pragma once

#include <QString>

class QAction;
class QKeySequence;
class QWidget;

/// The hint of a button names its keys too, behind what the hint says, or behind its caption where it says
/// nothing. The hint itself stays as it is. A second call changes the keys; an empty sequence names none.
void MostraTasti(QWidget* Bottone, const QKeySequence& Tasti);

/// The hint of a button as it is shown.
[[nodiscard]] QString SuggerimentoMostrato(const QWidget* Bottone);

/// Shows keys beside an entry of a menu that another action answers: the entry takes none of them.
void MostraTasti(QAction* Voce, const QKeySequence& Tasti);
