// The button of the page of the guide that belongs to a tab.
#pragma once

class QAction;
class QToolBar;

/// Keeps the button enabled only while there is a guide to open: looked at whenever its toolbar is shown. Its
/// tooltip says what is missing.
void SeguiGuida(QToolBar* Barra, QAction* Tasto);
