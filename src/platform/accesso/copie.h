// The folder of native copies that serve in the place of Access files.
#pragma once

#include "platform/accesso/accesso.h"

/// The folder, for this user alone, with the separator at its end; it is made and swept at its first use.
/// @throws Errore 75 when it cannot be made
[[nodiscard]] QString CartellaDelleCopie();

/// Deletes copies that nobody has used for long, what interrupted conversions have left, and the longest
/// unused ones where all are too large.
void SpazzaCopie();

/// ConvertiAccess; a copy that can be made again need not be waited for until it stands on the disk.
std::optional<RapportoAccess> Converti(const QString& Da, const QString& A, const ModoAccess& Come,
                                       bool SulDisco);
