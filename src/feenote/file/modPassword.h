// The password of a note: how it is held while the note is open, and its form in the file.
#pragma once

#include "feenote/parcella.h"

#include <QString>

/// Marks a password that was set in this session and is not saved yet.
inline constexpr QStringView PswDaSalvare = u"->>";

/// What counts of a password that was typed: its first MassimoPsw characters.
[[nodiscard]] QString TagliaPsw(const QString& Psw);
/// A saved password as the record holds it. One that begins with the mark itself bears the mark before it, or
/// the next save would take its own characters for the mark.
[[nodiscard]] QString PswNelCampo(const QString& Psw);
/// The password of a note in the form of the file, without the mark; empty for a note without one.
[[nodiscard]] QString PswDaScrivere(const Parcella& Nota);

/// Each character as its Windows-1252 code in three decimal digits; one that the code page lacks is 063,
/// the question mark. At most MassimoPsw characters count.
[[nodiscard]] QString CodificaPsw(const QString& Psw);
/// The reverse; a piece that is no code from 0 to 255 ends the reading.
[[nodiscard]] QString DecodificaPsw(const QString& Cifre);
/// The password of a column `Psw`: decoded, or as it stands when it cannot be decoded, because a file that
/// somebody protected stays protected.
[[nodiscard]] QString PswDalFile(const QString& Cifre);
