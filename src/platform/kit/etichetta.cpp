#include "platform/kit/etichetta.h"

#include <QPainter>
#include <QStyle>

void Etichetta::TogliInMezzo()
{
    Dove = Qt::ElideMiddle;
    update();
}

void Etichetta::MostraForme(const QString& Intero, const QStringList& PiuBrevi)
{
    Brevi = PiuBrevi;
    setText(Intero);
    update();  // the forms may have changed below the same text
}

QString Etichetta::Mostrato() const
{
    const int Posto = contentsRect().width();
    for (const QString& Forma : QStringList{text()} + Brevi)
        if (fontMetrics().horizontalAdvance(Forma) <= Posto)
            return Forma;
    return fontMetrics().elidedText(Brevi.isEmpty() ? text() : Brevi.constLast(), Dove, Posto);
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

#include "moc_etichetta.cpp"
