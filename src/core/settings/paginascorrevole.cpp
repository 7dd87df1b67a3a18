#include "core/settings/paginascorrevole.h"

PaginaScorrevole::PaginaScorrevole(QWidget* Pagina)
{
    setObjectName(Pagina->objectName());
    Pagina->setObjectName({});
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(Pagina);
    // The ground is the tab's.
    viewport()->setAutoFillBackground(false);
    Pagina->setAutoFillBackground(false);
}

QSize PaginaScorrevole::sizeHint() const
{
    return widget()->sizeHint().expandedTo(widget()->minimumSizeHint());
}
