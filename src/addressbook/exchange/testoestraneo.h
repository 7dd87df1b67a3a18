// Text files of unknown origin: whether they are text at all, and in which code.
#pragma once

#include <QByteArray>
#include <QString>

/// How the bytes of a text are to be read.
enum class CodificaTesto {
    Automatica,  ///< by its mark; without one UTF-8 where it is that, else Windows-1252
    Utf8,
    Windows1252,
    Utf16,  ///< by its mark alone
};

/// The text of a file's bytes, without the mark at its beginning.
/// @param Trovata when not null, how it was read
/// @throws Errore NumeroFileRifiutato for what is no text, or empty
[[nodiscard]] QString LeggiTestoEstraneo(const QByteArray& Byte, CodificaTesto Come,
                                         CodificaTesto* Trovata = nullptr);
