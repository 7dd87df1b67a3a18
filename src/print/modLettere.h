// Amounts in Italian words, as printed in brackets under a total.
#pragma once

#include <QString>
#include <QVariant>

/// "milleduecentotrentaquattro/50" of 1234.5.
///
/// The integer part is rounded down, the decimals are the first two of the plain text, "00" when there
/// are none. 0 is "/00". Above 12 digits only the first 12 are read. A negative amount is "meno" and the
/// words of its absolute value. No blanks, no "e"; "diciasette" and the missing elisions ("ventiotto",
/// "centouno") are the house spelling, and elision crosses the thousands ("duemilionuno").
/// @throws Errore 5 when the amount is not finite
[[nodiscard]] QString NumeroInLettere(double Valore);
/// @param Valore a number, or an Italian text of one ("1190,70")
/// @throws Errore 13 when it is none, 6 when it is beyond a double
[[nodiscard]] QString NumeroInLettere(const QVariant& Valore);

/// Position of the last occurrence counted from 1, 0 when none.
[[nodiscard]] int UltimaPos(const QString& Testo, const QString& Cercato);
/// Replaces until none is left, searching again from the start of the result each time. A replacement that
/// contains what is sought would never end: it goes over the text once. An empty search changes nothing.
[[nodiscard]] QString SostituisciTesto(const QString& Testo, const QString& Cercato, const QString& Nuovo);
