// The start of the program: three ways, told apart by the command line.
#pragma once

#include "core/posti.h"
#include <QString>

/// Entry procedure. Runs inside the event loop, so that it may show messages and end the process.
///
/// @param RigaDiComando the arguments joined by a blank, as they stand: "-low" opens a new fee note without
///        the desktop, "PV2|N..." and "PV2|E..." one for the companion application, "debug" the desktop with
///        its trace, the name of a file that file as "PV2|E|" would, "--comando" and the word of a desktop's
///        icon the desktop with what the icon opens, anything else the desktop
void Main(const QString& RigaDiComando);

/// True for the starts that are made for one note, by "-low" or by the companion application: nothing else is
/// opened in them.
[[nodiscard]] bool RigaDiAltri(const QString& Riga);

/// The file that a command line opens by naming it, whole path; empty for any other start.
[[nodiscard]] QString FileDellaRiga(const QString& Riga);

/// True until the notice page was silenced by its marker, beside the program or in the user folder.
[[nodiscard]] bool AvvisoDaMostrare();

/// Ends the process when no window is left to keep it alive, and no file is on its way.
void FineSenzaFinestre();

/// The road of the last fee note: sizes of the frame saved, then the end of the process in low mode, else
/// the desktop in its place. The frame is unloaded by a queued call, as it may still be closing its child.
void DopoUltimaParcella();
