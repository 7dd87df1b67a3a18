// Reading a note from its file: one small database with the tables ParcellaParam (one row), ParcellaRighe and
// ParcellaAcconti. There is no version mark; old files are told apart by the columns they lack.
#pragma once

#include "feenote/parcella.h"

#include <QString>

#include <functional>

class Database;

/// Lines and payments that a file may hold; more is a damaged or hostile one.
constexpr int MassimoRigheFile = 100'000;

/// Reads a file into the note. Messages: a protected note, a linked party that is gone.
///
/// The record is first a new note, then takes what the file has. Columns of the print data that an old file
/// lacks are ignored, and the file gets those that every note must have; keys, parameters, password and lines
/// must be there. Lines of catalogues with other keys get the present ones. The print type is applied last;
/// the note is then unmodified. The read-only attribute of the file is as before on every way out.
/// A note whose file keeps the numbers of its office and bracket opens without its reference database too:
/// that is told, and its amounts are those of its lines.
/// @param Aperta called once the file has what it lacked and before anything of it is read: a stamp that is
/// taken then sees whatever somebody else saves while the messages wait
/// @throws ErroreCarico when the file, or the reference database of any other note, cannot be opened or read:
/// the note is then a new one of the office's, without a path
void CaricaDati(Parcella& Nota, const QString& Percorso, const std::function<void()>& Aperta = {});

/// Makes a new note and reads parameters, lines and payments of a file into it, and nothing else: no message
/// but of what its tariff lacks, no upgrade, no party looked up, no path, no password.
/// @return how many of its amounts cannot be read, and are 0
/// @throws Errore as CaricaDati
int LeggiInSilenzio(Parcella& Nota, const Database& File);

/// The password of a file, decoded; empty when it has none. One that cannot be decoded comes as it stands:
/// the file is protected none the less.
/// @throws Errore as OpenDatabase
[[nodiscard]] QString LeggiPsw(const QString& Percorso);
