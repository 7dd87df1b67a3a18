// The quantity of a line of honoraria: what is asked, and what an answer counts as.
#pragma once

#include <QString>

/// What a typed quantity counts as: "." is read as ",", then carried up to the whole unit, since a fraction
/// begun counts. The value + 0.49 is rounded half-even, on the decimal text: 2,5 gives 3, 2,02 gives 3. A
/// hundredth alone makes a tie, which goes to the even number: 2,01 gives 2, 3,01 gives 4.
/// @return 0 for text that is no number or not above 0
[[nodiscard]] double ArrotondaQuantita(const QString& Risposta);

/// Quantity code of an item charged by the hour whose fraction counts above the minutes that follow: "T30".
inline constexpr QChar CodiceOreEFrazioni = u'T';

/// The same by the quantity code of an item: hours of which a fraction counts only above so many minutes are
/// whole hours, and one more for such a fraction; anything else as ArrotondaQuantita.
[[nodiscard]] double QuantitaContata(const QString& QtaOno, const QString& Risposta);

/// The largest quantity of a line.
constexpr double MassimaQuantita = 999'999'999;

/// Asks for the quantity of an item; one above MassimaQuantita is told, and so are hours that come to none.
/// @return 0 for a cancelled or unusable answer
[[nodiscard]] double GetQuant(const QString& Descr, const QString& QtaOno);
