// A small file that several programs change: one of them at a time reads it, changes it and puts it back.
#pragma once

#include <QString>

#include <functional>

/// Runs while no other program does the same for this file, or one would put back what another has changed.
/// Its lock stands beside the file; that of a program that is gone holds nobody up.
/// @param Blocco name of the lock, beside the file
/// @throws Errore 55 another program goes on and on, 75 its folder lets nobody write, 57 the disk fails; what
/// `Fai` throws
void ATurno(const QString& File, const QString& Blocco, const std::function<void()>& Fai);
