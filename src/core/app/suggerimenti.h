// Hints of all windows: each names the keys that the table of keys has for its button.
#pragma once

class QWidget;
struct RigaTasti;

/// The row of the table about a control, by its name and the window that it stands in; null where it has
/// none.
[[nodiscard]] const RigaTasti* TastiDelControllo(const QWidget* Controllo);

/// Lets the hint of a control name its keys; see MostraTasti.
void PreparaSuggerimento(QWidget* Controllo);

/// From now on this is done to every control whose hint is asked for.
void InstallaSuggerimenti();
