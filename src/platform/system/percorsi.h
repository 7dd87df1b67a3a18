// Paths: "\" and "/" are both separators in what comes in; what goes to the system has its own.
#pragma once

#include <QString>

/// The path with exactly one separator at its end (the platform's); an empty one stays empty.
[[nodiscard]] QString Barra(const QString& Percorso);

/// The path with the platform's separators, doubled ones folded (a leading pair of a network share stays).
[[nodiscard]] QString PercorsoNativo(const QString& Percorso);

/// The path itself where it is a whole one, otherwise below a folder; an empty folder is the one where the
/// process happens to be.
[[nodiscard]] QString PercorsoIntero(const QString& Percorso, const QString& Cartella = {});

/// Bytes that a name takes on the disk, where each has a limit.
[[nodiscard]] qsizetype ByteDelNome(const QString& Nome);

/// The part after the last separator, the whole text when there is none.
[[nodiscard]] QString NomeFile(const QString& Percorso);

/// The part up to and with the last separator, empty when there is none.
[[nodiscard]] QString CartellaFile(const QString& Percorso);

/// True when the path ends in this folder name, whatever the separators: ("C:\x\Modelli\", "Modelli").
[[nodiscard]] bool FinisceInCartella(const QString& Percorso, const QString& Nome);
