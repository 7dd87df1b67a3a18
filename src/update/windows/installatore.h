// The end of an update: open notes are asked, the installer is started, the program ends.
#pragma once

#include "update/modAggiorna.h"

/// "Errore di download del file di aggiornamento <name> (<why>). ..."
[[nodiscard]] QString FraseDownloadFallito(const QString& Nome, const QString& Dettaglio);

/// Asks each modified note as its closing does, looks at the installer once more, starts it and ends the
/// program. A Cancel, and a start that fails, leave the program running; the second says so.
/// @return where the system has no installer of packages: the one command that does it, told before; else
/// empty
QString InstallaEdEsci(const Annuncio& Trovato, const QString& File);
