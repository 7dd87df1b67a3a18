// Lock files that only the end of their process frees.
#pragma once

class QLockFile;

/// Takes a lock, waiting for it as long as is told. A lock file that bears no process, left by a program that
/// was killed while it made it, is nobody's once it is a second old.
/// @return false when a living process has the lock, or the folder refuses it; `Blocco.error()` tells which
[[nodiscard]] bool PrendiBlocco(QLockFile& Blocco, int AttesaMs);
