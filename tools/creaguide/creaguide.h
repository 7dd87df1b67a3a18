// The command creaguide: the texts of the guides in, their PDF documents and the pages of the help out.
#pragma once

#include "creaguide/marcatura.h"

#include <QTextStream>

/// The tables that a guide may ask for, read from the text tables of a folder: "tassi_legali", "tassi_mora",
/// "medi_tribunale" (mean fees by bracket and phase), "medi_penali" (by court and phase); and
/// "tasti:<window>", its keys from the program's own table ("tasti:ovunque" those of all windows).
[[nodiscard]] FonteTabelle TabelleDi(const QString& Cartella);

/// Runs the command; `Argomenti` are the folder of the text tables, which holds the texts in its folder
/// "guide", and the output folder. Each text becomes a PDF of its name, in the folder of its name; those of
/// the folder "aiuto" become the pages of the help instead (see aiuto.h), which a guide may take in as its
/// chapters.
/// @return exit status: 0; 1 with an Italian sentence in `Errori` when a text is refused or a file cannot be
///         written; 2 wrong use
[[nodiscard]] int CreaGuide(const QStringList& Argomenti, QTextStream& Errori);
