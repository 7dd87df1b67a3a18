#include "platform/kit/davanti.h"

#include <QWidget>

void PortaDavanti(QWidget* Finestra)
{
    // Not showNormal(), which forgets that the window was maximised.
    Finestra->setWindowState(Finestra->windowState() & ~Qt::WindowMinimized);
    Finestra->show();
    Finestra->raise();
    Finestra->activateWindow();
}
