// The desktop seam as Qt gives it.
#pragma once

#include "platform/shell.h"

/// Desktop services, busy pointer, beep, focus moves and the end of the process. `Connesso` stays empty:
/// it belongs to the network.
[[nodiscard]] Shell ShellQt();
