// Which form each command opens: the only place that knows them all.
#pragma once

#include "core/aperture.h"

/// Fills Aperture, and gives the fee-note windows their frame. A command whose form does not exist is not
/// registered: its controls are disabled.
void RiempiApritori();
