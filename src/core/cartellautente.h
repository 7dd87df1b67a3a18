// Folders of this user's own inside the user folder, which a whole office may share.
#pragma once

#include <QString>

/// The folder of this name in the user folder, with the separator at its end; the one of this name among the
/// user's own data where that belongs to a colleague or refuses new files: what two users keep for themselves
/// never stands together, and nobody goes without.
[[nodiscard]] QString CartellaUtente(const QString& Nome);
