// What a write that was cut off leaves beside a database.
#pragma once

#include <QString>

/// Takes the journal away that a killed program has left beside a database, and undoes first what stands half
/// written in the file. The engine itself leaves a journal of which nothing had reached the file until the
/// next write, which may never come.
///
/// Nothing happens while somebody writes, to a read-only file and to what is no database. Nobody is waited
/// for; it belongs to no open Database, and may run in a thread of its own.
void TogliGiornale(const QString& Percorso);

/// Whether the journal beside a file does not fit it: it names another one (GiornaleDiPiuDatabase), or tells
/// of a file longer than this one and the journal together, which the engine would make it, terabytes of a
/// few bytes. The program itself may have left the second kind, where a shorter back-up stands in the file's
/// place.
[[nodiscard]] bool GiornaleAltrui(const QString& File);
/// Whether it is that of a write into several databases at once, which names a journal of them all. The
/// program never writes so; what did is the one that makes the file whole.
[[nodiscard]] bool GiornaleDiPiuDatabase(const QString& File);
