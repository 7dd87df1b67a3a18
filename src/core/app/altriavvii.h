// One program for the files of a desktop: a start with a file gives it to the session that is running.
#pragma once

#include <QString>

/// Hands the file of a command line to a running session of this user and these settings.
/// @return true when that one opens it, and this start is over
[[nodiscard]] bool PassaAdAltroAvvio(const QString& RigaDiComando);

/// Takes the files of later starts from now on until the program ends, unless the session was started by
/// "-low" or by the companion application, or another one of the user's takes them already. A file that is
/// open comes to the front; one that comes while a question waits is opened behind the answer.
void AscoltaAltriAvvii(const QString& RigaDiComando);
