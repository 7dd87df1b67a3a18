// What a note keeps of its electronic invoice.
#pragma once

#include "feenote/parcella.h"

/// Number and date of the note's invoice in one text: what tells one invoice from another that came of the
/// same note, or of a copy of it.
[[nodiscard]] QString FirmaFattura(const Parcella& Nota);

/// The note's invoice has a number, and a date that is one.
[[nodiscard]] bool FatturaNumerata(const Parcella& Nota);

/// The invoice that the note has now was written as a file already, the last of its invoices or an earlier
/// one.
[[nodiscard]] bool FatturaGiaScritta(const Parcella& Nota);
/// "La fattura è già stata scritta il 22/11/2026 come IT01234567897_00001.xml". The note keeps day and name
/// of the file that was written last alone.
/// @param Scritta what the note keeps of it
[[nodiscard]] QString FraseGiaScritta(const DatiFatturaXml& Scritta);
/// The same of a note of which FatturaGiaScritta is true.
[[nodiscard]] QString FraseGiaScritta(const Parcella& Nota);

/// Keeps the file that was written of the invoice; the note is then invoiced, and modified.
void SegnaFatturaScritta(Parcella& Nota, const QString& File, const QString& Progressivo);

/// Takes over other choices; the note is then modified, unless they are those that it has.
/// @return true when it was
bool CambiaFatturaXml(Parcella& Nota, const DatiFatturaXml& Scelte);
