#include "platform/kit/davanti.h"

#include <QDialog>

namespace {

/// Not showNormal(), which forgets that the window was maximised.
void Ripristina(QWidget* Finestra)
{
    Finestra->setWindowState(Finestra->windowState() & ~Qt::WindowMinimized);
}

}  // namespace

void PortaDavanti(QWidget* Finestra)
{
    Ripristina(Finestra);
    Finestra->show();
    Finestra->raise();
    Finestra->activateWindow();
}

int EseguiDavanti(QDialog* Modulo)
{
    Ripristina(Modulo);
    return Modulo->exec();
}
