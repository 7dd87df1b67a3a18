// The end of an update: open notes are asked, the installer is started, the program ends.
#pragma once

#include "update/modAggiorna.h"

/// Whether the program itself can go on from an installer that it has: false for a package on a system that
/// has no program for packages, where the user is given a command.
[[nodiscard]] bool SiInstallaDaSe(const QString& File);

/// Asks each modified note as its closing does, looks at the installer once more, starts it and ends the
/// program. A Cancel, and a start that fails, leave the program running; the second says so.
/// @return where SiInstallaDaSe is false: the one command that does it, told before, and nothing is closed;
/// else empty
QString InstallaEdEsci(const Annuncio& Trovato, const QString& File);
