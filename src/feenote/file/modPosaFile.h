// Saving a fee note: the file is built anew each time from the template tables of parcelle.mdb.
#pragma once

#include "feenote/parcella.h"

#include <QString>

/// Bytes of a file's name that every disk takes, the names of the files beside it included.
constexpr qsizetype MassimoNomeNota = 240;

/// Builds the file of a note.
///
/// The new file is complete before it takes the place of a former one: a failure at any step (full disk,
/// read-only folder, damaged reference database) leaves the former file as it was, and nothing under the
/// note's name where there was none. A reference database from before the general expenses gets their column.
/// @param ComeModello the file gets the read-only attribute, which protects templates
/// @throws Errore 75 refused, or a folder of that name, 3044 no such folder, 52 name over 240 bytes, 3026
/// disk full, 3024/3343 parcelle.mdb, 70 the file is a template, 3163 text too long, 3260 another program is
/// writing the same file
void ScriviNota(const QString& Percorso, const Parcella& Nota, bool ComeModello = false);
