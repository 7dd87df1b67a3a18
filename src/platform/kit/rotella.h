// The mouse wheel scrolls; it does not choose.
#pragma once

#include <QObject>

/// Watches the whole application: a notch of the wheel over a closed list never changes it, one over a spin
/// box, a slider or a date does so only where that has the focus. In all other cases the page under it
/// scrolls. No control takes the focus by the wheel, so that a field is not left by it either.
class GuardiaRotella : public QObject
{
public:
    explicit GuardiaRotella(QObject* Padre) : QObject(Padre) {}
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;
};
