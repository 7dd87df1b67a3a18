// Start of the session: settings into variables, and the companion application's request.
#pragma once

#include "core/sessione.h"

#include <QString>

/// Name of the program's settings and of their one section.
inline constexpr QStringView Applicazione = u"KR5";
inline constexpr QStringView SezioneParametri = u"Parametri";

/// Fills the session variables from the settings store. Called by Main once and by the settings form
/// after each save, so that a change is in force at once. Failures are reported; a malformed rate leaves
/// its variable as it was.
void ImpostaVariabili();

/// The path with the separator at its end; ArchivioCliCon rule: a stored folder gets "DatiStudio.mdb".
[[nodiscard]] QString PercorsoArchivio(const QString& Valore);

/// Cuts the request behind "PV2|N|" into the session's RichiestaPV2: seven fields, each followed by "|".
/// @return false when a "|" is missing or a number cannot be read (the latter is reported too); the
///         session's request is then empty
bool LeggiRichiestaPV2(const QString& Testo);
