#include "platform/kit/etichetta.h"

#include <QPainter>
#include <QStyle>

void Etichetta::TogliInMezzo()
{
    Dove = Qt::ElideMiddle;
    update();
}

QString Etichetta::Mostrato() const
{
    return fontMetrics().elidedText(text(), Dove, contentsRect().width());
}

void Etichetta::paintEvent(QPaintEvent* Evento)
{
    const QString Testo = Mostrato();
    if (Testo == text()) {
        QLabel::paintEvent(Evento);
        return;
    }
    QPainter Pennello(this);
    style()->drawItemText(&Pennello, contentsRect(),
                          int(QStyle::visualAlignment(layoutDirection(), alignment())), palette(),
                          isEnabled(), Testo, foregroundRole());
}
