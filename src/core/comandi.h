// The one command dispatcher: words from toolbars, menus, icons and the command line.
#pragma once

#include <QString>

#include <vector>

/// Runs a command. Exact case; an unknown word does nothing and reports nothing; a failure of a branch is
/// reported.
/// @param Indice window concerned, 0 none; a command that names one does nothing outside 1..UltimaParcella()
/// @param Par extra text, the reference of the companion's request
void EseguiComando(const QString& Comando, int Indice, const QString& Par);

/// The words in the order of the table; serves tests.
[[nodiscard]] std::vector<QString> ParoleComando();
