// What a reader of a hostile file may use of the machine.
#pragma once

#include <QtGlobal>

/// Limits of memory, processor and file size, for good; the process ends where it passes one.
/// @param Secondi of processor
/// @param MassimoScritto bytes of a file that is written
void LimitaRisorse(int Secondi, qint64 MassimoScritto);

/// From here on the process works with the files that it has open, and asks the system for nothing else: no
/// further file, no network, no other program.
void ChiudiPorte();
