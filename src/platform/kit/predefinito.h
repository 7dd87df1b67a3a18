// What Enter presses: the button that has the focus, else the default button of a dialog, unless a field
// keeps it.
#pragma once

#include <functional>

class QPushButton;
class QWidget;

/// Says that a field makes something of its own of Enter: while it has the focus the style lights no default
/// button, which Enter would not press.
/// @param Quando whether it does so now; empty: always
void TieneInvio(QWidget* Campo, std::function<bool()> Quando = {});

/// True when Enter, pressed where the window's focus is, presses this default button.
[[nodiscard]] bool InvioPreme(const QPushButton* Predefinito);

/// From now on Enter presses whatever button has the focus, as Space does, where the toolkit would press the
/// default one behind its back; and a default button is painted anew when the focus moves in its window.
/// Once, with the application there.
void SeguiInvio();
