// Which form each command opens: the only place that knows them all.
#pragma once

#include "core/aperture.h"

/// Fills Aperture, and gives the fee-note windows their frame. A command whose form does not exist keeps an
/// empty opener and does nothing.
void RiempiApritori();
