// Database files as anybody may send them.
#pragma once

#include "bersaglio.h"

/// The file that an input describes, in the working folder. Its first line says how:
///
///   "sql"    a copy of the sound file, on which the rest is run as SQL, whatever it breaks
///   "vuoto"  the same on a new file
///   "byte"   a copy with changed bytes: four bytes each, three of the place and one to write there
///   "tronca" a copy cut at the number that follows
///
/// Anything else is the file itself.
/// @return its full path
QString PosaDatabase(const QString& Nome, const QByteArray& Sana, const QByteArray& Dati);
