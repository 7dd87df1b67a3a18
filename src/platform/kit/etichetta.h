// A label of one line whose text may be longer than its room.
#pragma once

#include <QLabel>

/// Shows as much of a plain text as there is room for: the first of its forms that has room, and of the
/// shortest one, where none has, as much as there is with "…" for what is left out, the end or, where the end
/// says most, the middle. text() stays the whole of it.
class Etichetta : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

    /// Leaves out the middle of a text that is too long.
    void TogliInMezzo();
    /// A text with its shorter forms, the longest first.
    void MostraForme(const QString& Intero, const QStringList& PiuBrevi);
    /// The text as it is drawn.
    [[nodiscard]] QString Mostrato() const;

protected:
    void paintEvent(QPaintEvent* Evento) override;

private:
    QStringList Brevi;
    Qt::TextElideMode Dove = Qt::ElideRight;
};
