// The system's reasons for a refusal as errors of the program.
#pragma once

struct Errore;

/// The error that a code of `errno` means: 61 no room, 76 no such folder, 57 the disk fails, 75 anything
/// else.
[[nodiscard]] Errore ErroreDelSistema(int Codice);
