// Characters: 8-bit text in the code pages that rich text names, and what is no text.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

constexpr int PaginaWindows = 1252;
constexpr int PaginaSimboli = 42;  ///< no letters but signs: bullets and ticks

/// Windows-1252 both ways: the code page of configuration files, passwords and word-processor exports.
/// The five codes that it leaves free stand for the control characters of the same number.
[[nodiscard]] QByteArray Cp1252(const QString& Testo);
[[nodiscard]] QString DaCp1252(const QByteArray& Testo);

/// What editors put before a text in UTF-8.
inline constexpr QByteArrayView MarcaUtf8("\xEF\xBB\xBF");
/// Text of bytes that are UTF-8 behind its mark, and Windows-1252 without it.
[[nodiscard]] QString DaMarca(const QByteArray& Byte);

/// Text of bytes in a code page; an unknown page is read as 1252.
[[nodiscard]] QString TestoDaPagina(const QByteArray& Byte, int Pagina);

/// The sign that a symbol font shows for a code below 256: the common bullets, a bullet for the others beyond
/// the letters, letters and digits as they are.
[[nodiscard]] QChar SegnoDiSimboli(int Codice);

/// Code page of a font's character set; 0 when the set does not say.
[[nodiscard]] int PaginaDelSet(int Set);

/// The text without what no document holds: control characters other than tab and line break, and codes that
/// stand for no character. Half a surrogate pair becomes the sign for a character that was lost.
[[nodiscard]] QString SenzaControlli(QString Testo);
