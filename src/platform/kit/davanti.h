// A window before the others.
#pragma once

class QDialog;
class QWidget;

/// Shows a window and gives it the keys: a hidden one comes up, a minimised one is restored as large as it
/// was, maximised too.
void PortaDavanti(QWidget* Finestra);

/// QDialog::exec() of a form that is shown again and again: one that was hidden while it lay minimised would
/// hold the program back without showing.
int EseguiDavanti(QDialog* Modulo);
