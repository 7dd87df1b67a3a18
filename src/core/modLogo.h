// The logo of the office: where the program keeps its own copy, and what the settings say of it.
//
// The copy is a PNG that the program has made of what the user chose. Its fingerprint is the setting, and
// part of its name: a file that was damaged or replaced is told from it without reading a picture.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace logo {

// Height on paper, in centimetres.
inline constexpr double AltezzaMinima = 0.5;
inline constexpr double AltezzaMassima = 5.0;

/// Most pixels of the copy: 300 dots an inch at the greatest height, and over the widest text.
inline constexpr int PixelAltezza = 591;
inline constexpr int PixelLarghezza = 2079;

/// Most bytes of the copy.
inline constexpr qint64 MassimoByte = qint64(16) << 20;

/// The sheets of the calculators among what bears it, beside the digits of the print types.
inline constexpr QStringView VoceSchede = u"C";
/// What bears it at first: the documents whose page begins with the office, its agreements, the sheets. The
/// short invoice is for paper with a printed letterhead, the court's note and the plain figures have no head.
inline constexpr QStringView DocumentiIniziali = u"01356C";

/// "S", "C" or "D"; empty for anything else.
[[nodiscard]] QString PostoNoto(const QString& Valore);
/// A fingerprint as Impronta gives it; empty for anything else, since it becomes part of a name.
[[nodiscard]] QString ImprontaValida(const QString& Valore);

[[nodiscard]] QString Impronta(const QByteArray& Png);

/// The copy of a fingerprint, full path; empty for a text that is none.
[[nodiscard]] QString File(const QString& Impronta);

/// Stores a copy, and gives its fingerprint. @throws Errore 75, 61 as the disk refuses
[[nodiscard]] QString Conserva(const QByteArray& Png);
/// Removes every copy but this one, and but those of the last day: another program may still print with
/// one.
void TogliAltri(const QString& Impronta);

/// The bytes of a copy; nothing when it is missing or no longer what was stored, or the fingerprint is none.
[[nodiscard]] std::optional<QByteArray> Leggi(const QString& Impronta);

/// Pixels of a PNG by its first bytes; nothing where they are no PNG's.
struct Misure
{
    int Larghezza = 0;
    int Altezza = 0;
};
[[nodiscard]] std::optional<Misure> MisurePng(const QByteArray& Png);

}  // namespace logo
