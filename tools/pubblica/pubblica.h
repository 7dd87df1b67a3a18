// The command pubblica: keys, and the signed folder of updates.
#pragma once

#include <QStringList>
#include <QTextStream>

/// Runs the command.
///
///   chiavi FOLDER      makes calcanova.pub, for the package, and calcanova.key, for the publisher alone
///   cartella FOLDER --chiave FILE --versione N.N.N --tassi FILE [--data GG/MM/AAAA] [--nota TEXT]
///   [--programma FOLDER] [INSTALLER...]
///                      lays out FOLDER/kr5/setup: versioni.txt and its signature, tassi.dat, the installers,
///                      which are called upgrade<version>.exe or .deb there; with the folder of the program
///                      the pages of ScriviPagineSito too
///
/// The date is that of the archive's file unless another one is told. What stands in the folder is replaced;
/// keys never are. Another version than the one in use needs an installer; with the version in use the rates
/// are published alone.
/// @return exit status: 0; 1 with an Italian sentence in `Errori` when a file is refused; 2 wrong use
[[nodiscard]] int Pubblica(const QStringList& Argomenti, QTextStream& Detto, QTextStream& Errori);
