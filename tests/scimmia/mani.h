// The monkey's hands: what a display server would send, one event at a time.
#pragma once

#include <QPointer>
#include <QString>
#include <QWindow>

/// A place in a window, where the mouse is.
struct Posto
{
    QPointer<QWindow> Finestra;
    QPoint Dove;
};

/// Mouse and keyboard. Each call is one event, handed to the windowing system: it does not run the event
/// loop, so that nothing comes in between the closing of a box and whoever waits for its answer.
class Mani
{
public:
    void Muovi(const Posto& Verso);
    void Premi(const Posto& Qui, Qt::MouseButton Tasto, Qt::KeyboardModifiers Con);
    /// Lets go of the button that is held down; nothing while none is.
    void Lascia(const Posto& Qui);
    /// One notch, or some.
    static void Gira(const Posto& Qui, int Scatti, Qt::KeyboardModifiers Con);
    [[nodiscard]] bool Tiene() const { return Tenuto != Qt::NoButton; }
    /// The next press follows the last one as a double click does.
    void Affrettati() { Fretta = true; }

    /// A key, or a modifier by itself, goes to the window that has the keyboard; nothing while none has it.
    static void Tasto(QEvent::Type Tipo, int Codice, Qt::KeyboardModifiers Con, const QString& Testo);

private:
    void Manda(const Posto& Qui, Qt::MouseButton Tasto, QEvent::Type Tipo);
    int Adesso();

    Qt::MouseButton Tenuto = Qt::NoButton;
    Qt::KeyboardModifiers Modificatori;
    int Orologio = 10'000;  ///< of the events, in milliseconds
    bool Fretta = false;
};
