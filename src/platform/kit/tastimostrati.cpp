#include "platform/kit/tastimostrati.h"

#include <QAbstractButton>
#include <QAction>
#include <QHelpEvent>
#include <QKeySequence>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// Shows the hint of a button in its place.
class TastiNelSuggerimento : public QObject
{
public:
    explicit TastiNelSuggerimento(QWidget* Padre) : QObject(Padre) { Padre->installEventFilter(this); }

    QKeySequence Tasti;

    bool eventFilter(QObject* Oggetto, QEvent* Evento) override
    {
        auto* Bottone = qobject_cast<QWidget*>(Oggetto);
        if (Evento->type() != QEvent::ToolTip || !Bottone || Tasti.isEmpty())
            return QObject::eventFilter(Oggetto, Evento);
        QString Testo = Bottone->toolTip();
        if (Testo.isEmpty())
            if (const auto* Premibile = qobject_cast<const QAbstractButton*>(Bottone))
                Testo = Premibile->text();
        const QString Scritti = Tasti.toString(QKeySequence::NativeText);
        QToolTip::showText(static_cast<QHelpEvent*>(Evento)->globalPos(), u"%1 (%2)"_s.arg(Testo, Scritti),
                           Bottone);
        return true;
    }
};

const QString NomeFiltro = u"tastiMostrati"_s;

}  // namespace

void MostraTasti(QWidget* Bottone, const QKeySequence& Tasti)
{
    auto* Filtro = static_cast<TastiNelSuggerimento*>(
        Bottone->findChild<QObject*>(NomeFiltro, Qt::FindDirectChildrenOnly));
    if (!Filtro) {
        Filtro = new TastiNelSuggerimento(Bottone);
        Filtro->setObjectName(NomeFiltro);
    }
    Filtro->Tasti = Tasti;
}

void MostraTasti(QAction* Voce, const QKeySequence& Tasti)
{
    // Keys of this context are shown, and answered by nobody: the menu has the focus for none of them.
    Voce->setShortcut(Tasti);
    Voce->setShortcutContext(Qt::WidgetShortcut);
    Voce->setShortcutVisibleInContextMenu(true);
}
