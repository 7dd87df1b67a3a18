// The command creadati: text tables in, the program's databases out.
#pragma once

#include <QStringList>
#include <QTextStream>

/// Runs the command; `Argomenti` are the folder of the tables and the output folder.
///
/// The databases are made aside and take the place of the former ones only when all are complete.
/// @return exit status: 0; 1 with an Italian sentence in `Errori` when a table is refused or a file
///         cannot be written; 2 wrong use
[[nodiscard]] int CreaDati(const QStringList& Argomenti, QTextStream& Errori);
