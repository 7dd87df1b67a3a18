#include "scimmia/mani.h"

#include <QGuiApplication>
#include <QTest>
#include <QWheelEvent>

#include <utility>

int Mani::Adesso()
{
    constexpr int DoppioClic = 50;
    constexpr int Calma = 1000;  // more than any double click takes
    Orologio += std::exchange(Fretta, false) ? DoppioClic : Calma;
    return Orologio;
}

void Mani::Manda(const Posto& Qui, Qt::MouseButton Tasto, QEvent::Type Tipo)
{
    if (!Qui.Finestra || !Qui.Finestra->isVisible())
        return;
    qt_handleMouseEvent(Qui.Finestra, Qui.Dove, Qui.Finestra->mapToGlobal(Qui.Dove), Tenuto, Tasto, Tipo,
                        Modificatori, Tipo == QEvent::MouseButtonPress ? Adesso() : Orologio);
}

void Mani::Muovi(const Posto& Verso)
{
    Manda(Verso, Qt::NoButton, QEvent::MouseMove);
}

void Mani::Premi(const Posto& Qui, Qt::MouseButton Tasto, Qt::KeyboardModifiers Con)
{
    if (Tiene())
        return;
    Tenuto = Tasto;
    Modificatori = Con;
    Manda(Qui, Tasto, QEvent::MouseButtonPress);
}

void Mani::Lascia(const Posto& Qui)
{
    const Qt::MouseButton Tasto = std::exchange(Tenuto, Qt::NoButton);
    if (Tasto == Qt::NoButton)
        return;
    Posto Dove = Qui;
    // A button that is let go is let go, whatever has become of the window.
    if (!Dove.Finestra || !Dove.Finestra->isVisible())
        Dove = {QGuiApplication::focusWindow(), QPoint(1, 1)};
    Manda(Dove, Tasto, QEvent::MouseButtonRelease);
    Modificatori = {};
}

void Mani::Gira(const Posto& Qui, int Scatti, Qt::KeyboardModifiers Con)
{
    constexpr int Scatto = 120;
    if (!Qui.Finestra || !Qui.Finestra->isVisible())
        return;
    QWheelEvent Giro(Qui.Dove, Qui.Finestra->mapToGlobal(Qui.Dove), {}, {0, Scatti * Scatto}, Qt::NoButton,
                     Con, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&Giro);
    qApp->notify(Qui.Finestra, &Giro);
}

void Mani::Tasto(QEvent::Type Tipo, int Codice, Qt::KeyboardModifiers Con, const QString& Testo)
{
    if (QWindow* Davanti = QGuiApplication::focusWindow())
        qt_handleKeyEvent(Davanti, Tipo, Codice, Con, Testo);
}
