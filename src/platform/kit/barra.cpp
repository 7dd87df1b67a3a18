#include "platform/kit/barra.h"

#include "platform/kit/aspetto.h"

#include <QAction>
#include <QToolBar>

QAction* AggiungiTasto(QToolBar* Barra, const QString& Chiave, const QString& Suggerimento,
                       const QString& Scritta)
{
    QAction* Tasto = Barra->addAction(aspetto::Icona(Chiave), Scritta.isEmpty() ? Suggerimento : Scritta);
    Tasto->setObjectName(Chiave);
    Tasto->setToolTip(Suggerimento);
    // A toolbar takes its buttons out of the tab order; what the mouse can do, the keyboard can.
    QWidget* Bottone = Barra->widgetForAction(Tasto);
    Bottone->setObjectName(Barra->objectName() + u'_' + Chiave);
    Bottone->setAccessibleName(Suggerimento);
    Bottone->setFocusPolicy(Qt::TabFocus);
    return Tasto;
}
