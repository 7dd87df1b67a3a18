// Expense lines: the items of the catalogue, whose amounts the user types.
#pragma once

#include "feenote/parcella.h"

/// Writes a new expense line where RowIns says: no date, taxable amount 0, exempt amount empty.
///
/// @param Data taken for the interface's sake; the date of the line is left to the user
/// @return the row written
int AddDiritti(Parcella& Nota, const QDate& Data, const QString& Descr, const QString& Quant,
               const QVariant& NVoce, const QVariant& IDDir, std::optional<int> Corrente = {});

/// Turns the current row of the expense catalogue into a line; the same item may stand any number of times.
/// @throws Errore when the catalogue cannot be read
int InserisciSpesa(Parcella& Nota, const Catalogo& Voci, std::optional<int> Corrente = {});
