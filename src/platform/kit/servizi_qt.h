// The seams of messages, desktop and errors as Qt Widgets gives them.
#pragma once

#include <QApplication>

#include <functional>

/// The application: an exception that leaves an event handler goes to the report installed by
/// InstallaUltimaRete, the mouse wheel chooses nothing (GuardiaRotella), and words are no markup
/// (TestiPiani).
class Applicazione : public QApplication
{
    Q_OBJECT

public:
    Applicazione(int& argc, char** argv);
    bool notify(QObject* Ricevente, QEvent* Evento) override;
};

/// Installs Qt's boxes, dialogs, desktop services, busy pointer and focus moves into the seams. What the
/// network has put into the desktop's table stays.
void InstallaServiziQt();

/// Long work breathes through this: painting and the break key (Esc, Pause) only. Keys, clicks, timers and
/// the closing of windows do nothing meanwhile; calls already queued run, and a box that one of them opens is
/// answered as any other.
/// @param Ferma a button that asks to stop as well: a click on it, or Space or Enter while it has the focus
/// @return false when the user asked to stop
bool Respira(const QWidget* Ferma = nullptr);

/// True inside Respira: whoever runs now does so in the middle of somebody's long work.
[[nodiscard]] bool RespiroInCorso();

/// True while a box, a menu or a drag is in the user's way: another window now would lie over it, or take
/// away what he has in his hand.
[[nodiscard]] bool UtenteImpegnato();

/// Queues a call that may open a window or ask something: it runs from the event loop, and waits for the end
/// of the long work when that one is breathing. Goes with its context.
void InCodaDopoIlRespiro(QObject* Contesto, std::function<void()> Chiamata);
