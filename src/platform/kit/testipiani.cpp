#include "platform/kit/testipiani.h"

#include <QEvent>
#include <QLabel>

bool TestiPiani::eventFilter(QObject* Oggetto, QEvent* Evento)
{
    // A label is polished before it is measured, and is measured before it is laid out. Tool tips are labels.
    if (Evento->type() == QEvent::Polish)
        if (auto* Etichetta = qobject_cast<QLabel*>(Oggetto);
            Etichetta && Etichetta->textFormat() == Qt::AutoText)
            Etichetta->setTextFormat(Qt::PlainText);
    return false;
}
