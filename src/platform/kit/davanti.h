// A window before the others.
#pragma once

class QWidget;

/// Shows a window and gives it the keys: a hidden one comes up, a minimised one is restored as large as it
/// was, maximised too.
void PortaDavanti(QWidget* Finestra);
