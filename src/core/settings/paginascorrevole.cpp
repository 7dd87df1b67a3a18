#include "core/settings/paginascorrevole.h"

#include <QScrollBar>

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
    // The bar of a page that is too high stands beside it, so that it does not ask for another one below.
    return widget()->sizeHint().expandedTo(widget()->minimumSizeHint()) +
           QSize(verticalScrollBar()->sizeHint().width(), 0);
}

#include "moc_paginascorrevole.cpp"
