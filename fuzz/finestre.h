// Targets whose reader is a control.
#pragma once

/// The application and the look of the program, on no display; once for the process.
void PreparaFinestre();
