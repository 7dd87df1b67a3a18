#include "platform/kit/rotella.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

namespace {

/// True where a notch would change what the user has chosen.
bool Cambierebbe(const QWidget* Oggetto)
{
    if (qobject_cast<const QComboBox*>(Oggetto))
        return true;
    const bool Valore =
        qobject_cast<const QAbstractSpinBox*>(Oggetto) ||
        (qobject_cast<const QAbstractSlider*>(Oggetto) && !qobject_cast<const QScrollBar*>(Oggetto));
    return Valore && !Oggetto->hasFocus();
}

}  // namespace

bool GuardiaRotella::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    if (Evento->type() != QEvent::Wheel && Evento->type() != QEvent::Polish)
        return false;
    auto* Controllo = qobject_cast<QWidget*>(Oggetto);
    if (!Controllo)
        return false;
    if (Evento->type() == QEvent::Polish) {
        if (Controllo->focusPolicy() == Qt::WheelFocus)
            Controllo->setFocusPolicy(Qt::StrongFocus);
        return false;
    }
    if (!Cambierebbe(Controllo))
        return false;
    Evento->ignore();  // so that the page around it takes it
    return true;
}
