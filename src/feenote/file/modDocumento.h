// The fee-note file: one small database with the tables ParcellaParam (one row), ParcellaRighe and
// ParcellaAcconti. There is no version mark; old files are told by the columns they lack.
#pragma once

#include "feenote/parcella.h"
#include "platform/database/database.h"

#include <QString>

/// Lines and payments that a file may hold; more is a damaged or hostile one.
constexpr int MassimoRigheFile = 100'000;
/// Characters of a line's description in the file.
constexpr int MassimoDescr = 60;
/// Characters of a password.
constexpr int MassimoPsw = 6;

/// Marks a password that was set in this session and is not saved yet.
inline constexpr QStringView PswDaSalvare = u"->>";

/// What counts of a password that was typed: its first MassimoPsw characters.
[[nodiscard]] QString TagliaPsw(const QString& Psw);
/// A saved password as the record holds it. One that begins with the mark itself bears the mark before it, or
/// the next save would take its own characters for the mark.
[[nodiscard]] QString PswNelCampo(const QString& Psw);

/// Each character as its Windows-1252 code in three decimal digits; one that the code page lacks is 063,
/// the question mark. At most MassimoPsw characters count.
[[nodiscard]] QString CodificaPsw(const QString& Psw);
/// The reverse; a piece that is no code from 0 to 255 ends the reading.
[[nodiscard]] QString DecodificaPsw(const QString& Cifre);

/// Writes the note into a file that already holds the three empty tables, in one transaction.
///
/// Descriptions are cut to 60 characters, a date that is none becomes Null, amounts go through FormatNum,
/// the percentage of a switch that is off is 0.
/// @throws Errore as Recordset::Update; nothing is written then
void ScriviDati(const Database& File, const Parcella& Nota);

/// Reads a file into the note. Messages: a protected note, a linked party that is gone.
///
/// The record is first a new note, then takes what the file has. Columns of the print data that an old file
/// lacks are ignored, and ParcellaParam gets the column SpeseGen when it lacks it; keys, parameters, password
/// and lines must be there. The print type is applied last; the
/// note is then unmodified. The read-only attribute of the file is as before on every way out.
/// @throws Errore when the file cannot be opened or read: the note is then a new one without a path
void CaricaDati(Parcella& Nota, const QString& Percorso);

/// The password of a file, decoded; empty when it has none. One that cannot be decoded comes as it stands:
/// the file is protected none the less.
/// @throws Errore as OpenDatabase
[[nodiscard]] QString LeggiPsw(const QString& Percorso);
