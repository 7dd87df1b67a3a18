#include "platform/kit/barra.h"

#include "platform/kit/aspetto.h"

#include <QAction>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

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
    // The toolkit's own sign of what has no room is black on every colour.
    if (auto* Altri = Barra->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s))
        Altri->setIcon(aspetto::Icona(u"annodopo"_s));
    return Tasto;
}
