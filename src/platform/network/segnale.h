// The signal to another program of this user's, which is known by the title of its window.
//
// On Windows it is the data-copy message to that window: identifier 3, the text in 8 bits with its null.
// Elsewhere the same bytes go into a local socket that bears the title as its name, in the user's run-time
// folder ($XDG_RUNTIME_DIR), which nobody else may enter.
#pragma once

#include <QString>

/// Full name of the socket that a program with this title listens on; empty where the user has no run-time
/// folder.
[[nodiscard]] QString PresaSegnale(const QString& Titolo);

/// Fills `Segnala` in the desktop's table and leaves the rest of it. A program that does not listen is no
/// failure; one that is stuck is waited for half a second at most.
void InstallaSegnale();
