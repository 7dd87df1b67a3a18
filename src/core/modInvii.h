// Files on their way to another program: a document that a mail takes along.
#pragma once

#include <QString>

/// How long such a file stays at least: a mail program reads it again when the mail leaves.
inline constexpr int OreInvio = 1;

/// A new, empty folder for one file, with the separator at its end; nobody else may look into it.
/// @throws Errore 75 when it cannot be made
[[nodiscard]] QString NuovaCartellaInvio();

/// Removes the documents that were sent longer than OreInvio ago, and their folders; one in which the user
/// has put something else stays. The start and the end of the program call it; what cannot be removed waits
/// for the next time.
void SpazzaInvii();
