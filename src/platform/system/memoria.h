// Memory that was used and is not needed any more.
#pragma once

/// Gives what was freed back to the system, where the library of the machine keeps it; some milliseconds.
void RendiMemoria();
