// Writing a note into its file.
#pragma once

#include "feenote/parcella.h"
#include "platform/database/database.h"

/// Writes the note into a file that already holds the three empty tables, in one transaction.
///
/// Descriptions are cut to 60 characters, a date that is none becomes Null, amounts go through FormatNum,
/// the percentage of a switch that is off is 0. What the columns do not hold goes into the file's memory.
/// @throws Errore as Recordset::Update; nothing is written then
void ScriviDati(const Database& File, const Parcella& Nota);
