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

/// The journal beside a file, by one look at it.
enum class SpecieGiornale {
    Suo,  ///< or none
    /// It tells of a file longer than this one and the journal together, which the engine would make it,
    /// terabytes of a few bytes. The program itself may have left it, where a shorter back-up stands in the
    /// file's place.
    NonGliCorrisponde,
    /// That of a write into several databases at once, which names a journal of them all. The program never
    /// writes so; what did is the one that makes the file whole.
    DiPiuDatabase,
};
[[nodiscard]] SpecieGiornale GiornaleAccanto(const QString& File);
/// Whether it does not fit the file.
[[nodiscard]] inline bool GiornaleAltrui(const QString& File)
{
    return GiornaleAccanto(File) != SpecieGiornale::Suo;
}

/// Makes way for a database that is about to take a name whose journal stands there without the file that it
/// was of: the engine would play it into the new one. The former file is mended by it: it is kept, with
/// ".orfano" behind its name (".orf2" and so on where there is one already: no longer, so that a name that
/// has room for the first has it for all), and the folder holds that name on return. One that the engine
/// would not look at goes.
/// @param File what the links lead to
/// @return the name that the journal has by now, without its folder; empty where none was kept
/// @throws Errore 75 refused, 61 no room, 57 the disk fails: the journal has its former name again,
/// as far as the disk lets, and no NonConfermato says that the file stands in its place
QString ScostaGiornale(const QString& File);
/// Gives it its former name again, for a database that has not taken the name after all; no failure is said.
/// Not for one that has: the engine would play the journal into it.
/// @param Scostato what ScostaGiornale has returned; empty does nothing
void RimettiGiornale(const QString& File, const QString& Scostato);
