// The start of the program: three ways, told apart by the command line.
#pragma once

#include "core/posti.h"
#include <QString>

/// Entry procedure. Runs inside the event loop, so that it may show messages and end the process.
///
/// @param RigaDiComando the arguments joined by a blank, as they stand: "-low" opens a new fee note without
///        the desktop, "PV2|N..." and "PV2|E..." one for the companion application, "debug" the desktop with
///        its trace, anything else the desktop
void Main(const QString& RigaDiComando);

/// True until the notice page was silenced by its marker, beside the program or in the user folder.
[[nodiscard]] bool AvvisoDaMostrare();

/// Ends the process when no window is left to keep it alive.
void FineSenzaFinestre();

/// The road of the last fee note: sizes of the frame saved, then the end of the process in low mode, else
/// the desktop in its place. The frame is unloaded by a queued call, as it may still be closing its child.
void DopoUltimaParcella();
