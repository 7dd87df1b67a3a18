// What a screen reader says of something that has happened away from the focus.
#pragma once

#include <QString>

class QWidget;

/// How long an announcement can be read; tests have no time for it.
inline int DurataAnnuncioMs = 5000;

/// How long a result stands before it is said: of those that come while somebody types, or together, the last
/// one is said alone. Tests set it.
inline int PausaAnnuncioMs = 700;

/// Has a screen reader say what a label or a box of a result shows by the end of the pause, by its name and
/// its text; nothing where it is empty by then.
void AnnunciaRisultato(QWidget* Risultato);

/// Has a screen reader say a text; the same one may be said again. Nothing is seen, and no focus moves.
/// Some seconds later it is gone: who goes through the window then does not meet it.
/// @param Presso any widget of the window that it happens in
void AnnunciaTesto(QWidget* Presso, const QString& Testo);
