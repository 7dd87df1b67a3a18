// Database files as anybody may send them.
#pragma once

#include "bersaglio.h"

/// The file that an input describes, in the working folder. Its first line says how:
///
///   "sql"    a copy of the sound file, on which the rest is run as SQL, whatever it breaks
///   "vuoto"  the same on a new file
///   "byte"   a copy with changed bytes: four bytes each, three of the place and one to write there
///   "tronca" a copy cut at the number that follows
///   "giornale" the sound file, the rest beside it as its journal
///   "log"    the sound file, the rest beside it as the write-ahead log that it says it is kept with
///
/// Behind the last two, words may follow: "sola" makes the file read-only, "capo" and "capogiornale" end the
/// journal with the name of a bystander, as that of a write into several databases ends, "altrui" leaves the
/// file without a word of the log, "somme" makes the log's sums right. Anything else is the file itself.
/// @return its full path
QString PosaDatabase(const QString& Nome, const QByteArray& Sana, const QByteArray& Dati);

/// What lay beside the database of this input has its bytes: two files of somebody else; a journal that names
/// one of them; a log that the database does not say it is kept with. Nothing half-built has stayed,
/// and no journal has made the database longer than both are.
void PretendiVicini(const QString& File);

/// A file that was laid read-only is so still.
void PretendiSolaLettura(const QString& File);

/// The bytes that the engine by itself makes of a database and its journal; both stay as they are. A journal
/// that names another file, or makes of this one more than both hold, is left alone.
[[nodiscard]] QByteArray Risanata(const QString& File);
