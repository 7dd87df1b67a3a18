// The whole knowledge of regional settings, fixed to Italian: numbers, dates and roundings as text.
//
// The machine's locale plays no part: comma before the decimals, point between thousands,
// day/month/year. All roundings of the program live here under their names and nowhere else.
#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

#include <optional>

// ---- Roundings ----------------------------------------------------------------------------------

/// Nearest, ties to the even digit, judged on the decimal text of 15 significant digits, so that
/// 1100.005 at 2 digits is 1100.00 although the binary value lies above the tie.
///
/// @param Decimali digits kept behind the comma, 0 to 15
/// @return never -0; a value that is not finite comes back as it is
[[nodiscard]] double Round(double Valore, int Decimali = 0);

/// Nearest, ties away from zero, to 2 decimals, judged on the decimal text: FormatNum read back.
/// This is the rounding of the tax chain.
[[nodiscard]] double Arrotonda2(double Valore);

// ---- Numbers to text ----------------------------------------------------------------------------

/// The pattern "0.00" ("1234,50"): no thousands point, ties away from zero, never "-0,00".
/// @throws Errore 5 when the value is not finite
[[nodiscard]] QString FormatNum(double Valore);

/// The same for a cell or a box: empty, Null and text that is no number count as 0. Never fails.
[[nodiscard]] QString FormatNum(const QVariant& Valore);

/// Formats with up to three sections separated by ";" (positive, negative, zero) of the classic
/// digit patterns: '0' forced digit, '#' optional digit, ',' between digits groups thousands,
/// '.' the decimal sign; any other character stands for itself.
///
/// A value that rounds to zero takes the third section where there is one, else the first: "-0,00"
/// is never written. A negative value takes the second section without a sign of its own, or the
/// first with a leading "-". A section without a text counts as left out. "##" of 0 is empty and "##.##" of
/// 0.5 is ",5", as the classic rule goes. Ties go away from zero on the decimal text of 15 digits.
/// @throws Errore 5 when the pattern holds more than three sections or the value is not finite
[[nodiscard]] QString Format(double Valore, QStringView Modello);

/// How an amount in euro is written out.
inline constexpr QStringView ModelloImporto = u"#,##0.00";

/// How a date is written out wherever nothing else is asked for.
inline constexpr QStringView ModelloData = u"dd/mm/yyyy";

/// Dates: "dd/mm/yyyy", "mm/dd/yyyy" and any other arrangement of dd, mm, yyyy, yy. A null date is empty.
[[nodiscard]] QString Format(const QDate& Data, QStringView Modello);

/// Shortest plain text of a number: at most 15 significant digits, comma, no trailing zeros, no
/// grouping ("12,7"); a magnitude from 1E+15 up, or below 1E-4, is written with an exponent.
[[nodiscard]] QString CStr(double Valore);

/// The same with at most 7 significant digits: a single-precision 12.7 is "12,7", not "12,6999998". The
/// exponent begins where the digits end, at 1E+07.
[[nodiscard]] QString CStr(float Valore);
[[nodiscard]] QString CStr(int Valore);

/// The text of a cell: CStr for numbers, "Vero" or "Falso" for truth values, dd/mm/yyyy for dates, empty
/// for Null, the text itself.
[[nodiscard]] QString CStr(const QVariant& Valore);

/// Plain text with a decimal point and a leading place for the sign: " 12.5", "-3", " .5".
[[nodiscard]] QString Str(double Valore);

// ---- Text to numbers ----------------------------------------------------------------------------

/// True for a value of any kind of number, and for a truth value.
[[nodiscard]] bool ENumero(const QVariant& Valore);

/// True for a number in Italian form: blanks around, one leading sign, digits with an optional comma,
/// points only between complete groups of thousands, the first without a leading zero ("1.234,5", not
/// "12.5" nor "1.2.3" nor "0.500"), at least one digit, and an optional exponent ("1,5E3"). True too for
/// one too large to hold ("1E400").
[[nodiscard]] bool IsNumeric(const QString& Testo);

/// @throws Errore 13 when the text is no number in Italian form, 6 when it is beyond a double
[[nodiscard]] double CDbl(const QString& Testo);
/// @throws Errore 13, 6. Numbers pass, Null is 13, a truth value is -1 or 0, a date is 13.
[[nodiscard]] double CDbl(const QVariant& Valore);

/// Whole number of 16 bits, ties to even. @throws Errore 13 no number, 6 outside -32768..32767
[[nodiscard]] int CInt(const QString& Testo);
/// Whole number of 32 bits, ties to even. @throws Errore 13 no number, 6 outside the range
[[nodiscard]] int CLng(const QString& Testo);
/// Single precision. @throws Errore 13 no number, 6 outside the range
[[nodiscard]] float CSng(const QString& Testo);

/// "The numeric value of a box": the Italian number, 0 when the text is none or too large.
[[nodiscard]] double NumeroDi(const QString& Testo);
/// The same for a cell; empty, Null and text that is no number count 0.
[[nodiscard]] double NumeroDi(const QVariant& Valore);

/// Value of the longest numeric prefix, with a point as decimal sign; blanks are skipped wherever
/// they stand; 0 when there is none or when it is too large to hold. "12,5" gives 12, "1.5x" gives 1.5,
/// "1.5E3" gives 1500. Never fails, never infinite.
[[nodiscard]] double Val(const QString& Testo);

// ---- Dates --------------------------------------------------------------------------------------

/// Day/month/year only, separators "/", "-" or "." (both alike), day and month of 1 or 2 digits, a year
/// of 2 digits (00-29 are 20xx, 30-99 are 19xx) or of 4 from 0100 to 9999, blanks around allowed.
/// Nothing is swapped to make a date; a mask with "_" left in it is none.
[[nodiscard]] std::optional<QDate> LeggiData(const QString& Testo);
[[nodiscard]] bool IsDate(const QString& Testo);
/// True for a valid date and for text that reads as one.
[[nodiscard]] bool IsDate(const QVariant& Valore);
/// @throws Errore 13 when the text is no date
[[nodiscard]] QDate CDate(const QString& Testo);

// The text of a masked date box, "_" standing in the places that are not filled.

/// Without the two last places when they are not filled, so that a date with a two-digit year can be read:
/// "12/03/20__" gives "12/03/20", an empty mask gives "__/__/__".
[[nodiscard]] QString SenzaSecolo(const QString& Testo);

/// The same date with four digits of the year, for the boxes that show it so on leaving: "12/03/20__" gives
/// "12/03/2020". Any other text comes back as it is.
[[nodiscard]] QString ConSecolo(const QString& Testo);

/// A typed date as gg/mm/aaaa, with or without separators: "23/11/26", "23112026" and "231126" give
/// "23/11/2026". Any other text comes back as it is.
[[nodiscard]] QString DataDigitata(const QString& Testo);
