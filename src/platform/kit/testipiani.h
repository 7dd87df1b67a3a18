// Words on screen are words, wherever they come from.
#pragma once

#include <QObject>

/// Watches the whole application: labels and tool tips show their text letter by letter. The toolkit's own
/// guess would take a client's name, or a word of a file from outside, for a page as soon as it looks like
/// tags, and read the pictures that it names: a pipe or a device among them stops the program. A label that
/// is to be rich says so itself.
class TestiPiani : public QObject
{
public:
    explicit TestiPiani(QObject* Padre) : QObject(Padre) {}
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;
};
