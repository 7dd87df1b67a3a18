// What a screen reader says of something that has happened away from the focus.
#pragma once

#include <QString>

class QWidget;

/// Has a screen reader say a text; the same one may be said again. Nothing is seen, and no focus moves.
/// @param Presso any widget of the window that it happens in
void AnnunciaTesto(QWidget* Presso, const QString& Testo);
