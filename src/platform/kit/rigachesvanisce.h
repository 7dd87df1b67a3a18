// A line that says what has been done, and goes by itself.
#pragma once

#include <QLabel>

class QPropertyAnimation;

class RigaCheSvanisce : public QLabel
{
    Q_OBJECT

public:
    explicit RigaCheSvanisce(QWidget* Padre = nullptr);

    /// Shows a text, which a screen reader is told, and lets it fade after some seconds. Another one takes
    /// its place at once. Where the desktop wants no animations it goes in one step.
    void Mostra(const QString& Testo);
    /// Takes the text away at once: what it spoke of is no longer on view.
    void Togli();

    /// How long a text stays before it begins to fade, and how long it fades; tests have no time for it.
    static inline int FermaMs = 4000;
    static inline int SvanisceMs = 800;

private:
    QPropertyAnimation* Svanire;
};
