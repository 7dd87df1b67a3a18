// The seams of messages, desktop and errors as Qt Widgets gives them.
#pragma once

#include <QApplication>

/// The application: an exception that leaves an event handler goes to the report installed by
/// InstallaUltimaRete, and the mouse wheel chooses nothing (GuardiaRotella).
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
/// the closing of windows do nothing meanwhile; calls already queued run.
/// @param Ferma a button that asks to stop as well: a click on it, or Space or Enter while it has the focus
/// @return false when the user asked to stop
bool Respira(const QWidget* Ferma = nullptr);
