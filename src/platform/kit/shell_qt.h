// The desktop seam as Qt gives it.
#pragma once

#include "platform/system/shell.h"

/// Desktop services, busy pointer, beep, focus moves and the end of the process. `Connesso` and
/// `Segnala` stay empty: they belong to the network.
[[nodiscard]] Shell ShellQt();
