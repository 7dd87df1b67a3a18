// Start of the session: settings into variables.
#pragma once

#include "core/parametri.h"
#include "core/sessione.h"

#include <QString>

struct VersioneSistema;

/// Fills the session variables from the settings store. Called by Main once and by the settings form
/// after each save, so that a change is in force at once. A setting that does not convert is reported, a
/// malformed rate in silence; its variable stays as it was, and the others are read.
void ImpostaVariabili();

/// The same in a session that runs. Of a user folder that the store names no more, whoever has stored the new
/// one, the session takes its leave first, while it still knows it.
void RileggiVariabili();

/// Tells that the stored settings are damaged, and what to do about it; nothing while they are sound.
/// @return true when they are not
bool AvvisaImpostazioniGuaste();

/// Full path of the law-office database: a stored folder gets "DatiStudio.mdb" behind one separator, a
/// path that ends in ".mdb", whatever its case, and an empty one stay as they are.
[[nodiscard]] QString PercorsoArchivio(const QString& Valore);

/// Where the user's data lie when nothing is stored: "KR5" in the Documents, or the program folder on a
/// system before major version 6; with the separator at its end. The folder may not exist.
[[nodiscard]] QString CartellaUtente(const VersioneSistema& Sistema);
