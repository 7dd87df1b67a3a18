// A label of one line whose text may be longer than its room.
#pragma once

#include <QLabel>

/// Shows as much of a plain text as there is room for, and "…" for what it leaves out: the end, or the middle
/// where the end says most. text() stays the whole of it.
class Etichetta : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    /// Leaves out the middle of a text that is too long.
    void TogliInMezzo();
    /// The text as it is drawn.
    [[nodiscard]] QString Mostrato() const;

protected:
    void paintEvent(QPaintEvent* Evento) override;

private:
    Qt::TextElideMode Dove = Qt::ElideRight;
};
