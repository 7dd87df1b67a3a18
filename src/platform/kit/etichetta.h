// A label of one line whose text may be longer than its room.
#pragma once

#include <QLabel>

/// Shows as much of a plain text as there is room for, and then "…"; text() stays the whole of it.
class Etichetta : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    /// The text as it is drawn.
    [[nodiscard]] QString Mostrato() const;

protected:
    void paintEvent(QPaintEvent* Evento) override;
};
