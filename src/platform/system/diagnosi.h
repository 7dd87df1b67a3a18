// What the toolkit says to programmers.
#pragma once

#include <QLoggingCategory>

/// What the program itself has to say where no window and no caller can.
Q_DECLARE_LOGGING_CATEGORY(Diario)

/// Keeps the toolkit's own remarks, in English and about its insides, from the error stream, where a user or
/// a script reads what the program says. Whoever sets QT_LOGGING_RULES or QT_FATAL_WARNINGS looks for them
/// and gets them; what ends the program is always said.
void TaciAiProgrammatori();
