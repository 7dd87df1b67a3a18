// The fence around a process that does things at random.
#pragma once

#include <QString>

/// Keeps this process from writing outside a folder, from running a program and from any connection to
/// another one over TCP, for the rest of its life.
/// @return false where the system knows no such fence
[[nodiscard]] bool ChiudiRecinto(const QString& Cartella);
