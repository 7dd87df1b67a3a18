// One row of each of many files, as a list of them wants it: far cheaper than opening each as a database.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

/// What is wanted of a file's annotations (Database::Annotazioni) beside a row.
struct AnnotazioniChieste
{
    QStringList Nomi;
    QMap<QString, QString> Trovate;  ///< those that the file has
};

/// The cells of the first row of a table as text, Null as an empty one.
///
/// The file is opened for reading alone and for this one look: its bytes, its attributes and its folder stay
/// as they are, and nobody is waited for. It belongs to no open Database, and may run in a thread of its own.
/// @param MassimoCaratteri what a cell holds beyond is cut
/// @param Anche filled with the file's annotations, cut alike; a file whose table of them is another
/// program's, or cannot be read, has none
/// @return nothing for a table without rows
/// @throws Errore 53 no such file, 75 unreadable or no file, 3343 no database (truncated ones too), 3078 no
/// such table, 3061 no such column, 3260 in use: somebody is writing, or what an interrupted write has left
/// must be mended first; 3043 disk or network, 3047 too large or too much work
[[nodiscard]] std::optional<QStringList> LeggiPrimaRiga(const QString& Percorso, const QString& Tabella,
                                                        const QStringList& Colonne, int MassimoCaratteri,
                                                        AnnotazioniChieste* Anche = nullptr);

/// The first bytes of a file, whatever it is, read through the engine: to open and close a database beside it
/// would drop the locks that this process holds on it. May run in a thread of its own.
/// @return as many as there are, at most `Byte`; none of a file that is missing or cannot be read
[[nodiscard]] QByteArray InizioDelFile(const QString& Percorso, int Byte);
