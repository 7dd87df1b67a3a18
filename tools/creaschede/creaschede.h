// The command creaschede: the tables of the tariff and the texts of its items in, their information sheets
// out.
#pragma once

#include <QStringList>
#include <QTextStream>

/// Runs the command; `Argomenti` are the folder of the tables, which holds the texts in its folder "schede",
/// and the program folder, whose folder "note" takes the sheets.
///
/// Every item of the three catalogues of each tariff gets its sheet, under the name that the program looks
/// for. Sheets of items that are no more go; nothing is written before all are composed.
/// @return exit status: 0; 1 with an Italian sentence in `Errori` when a table or a text is refused or a file
///         cannot be written; 2 wrong use
[[nodiscard]] int CreaSchede(const QStringList& Argomenti, QTextStream& Errori);
