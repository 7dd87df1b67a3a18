// What tests of windows need: a window that has the focus, and keys of any letter.
#pragma once

#include <QKeyEvent>
#include <QRect>
#include <QString>
#include <QWidget>

#include <functional>

/// Shows a window and waits until it is the active one. @return false when it does not become so
[[nodiscard]] bool MostraAttiva(QWidget& Finestra);

/// What a message box does on a display: it comes up as the active window, what is queued runs meanwhile, and
/// the window before gets the focus back only when the events after its closing are dealt with.
void BoxDavanti();

/// Types a text into the widget that has the focus, one key a character. QTest's own keyboard stops at
/// accented letters.
void Digita(const QString& Testo, Qt::KeyboardModifiers Modificatori = Qt::NoModifier);

/// Presses and releases a key in the widget that has the focus, and the keys of its modifiers around it. A
/// modifier alone is pressed with its own modifier set: Premi(Qt::Key_Control, Qt::ControlModifier).
void Premi(Qt::Key Tasto, Qt::KeyboardModifiers Modificatori = Qt::NoModifier);

/// Turns the wheel by one notch downwards over a widget, as the display server tells it: what the widget does
/// not take goes to those around it.
void Rotella(QWidget* Sopra);

/// Places a window that is on view as its user would: once it is painted, so that no layout and no window
/// manager is still at it.
void SpostaDaUtente(QWidget& Finestra, const QRect& Posto);

/// Asks a window that keeps its place under `Nome` for the whole of it: nothing is kept of one that nobody
/// has touched, what the user did is, and it comes up there again. `Apri` shows it.
void ProvaPosto(const QString& Nome, const std::function<QWidget*()>& Apri);

/// Lets queued calls run.
void Respiro();
