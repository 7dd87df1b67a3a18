// The fiscal code of a person, by the criteria of D.M. 12 marzo 1974.
#pragma once

#include <QDate>
#include <QString>
#include <QStringView>

/// How the day of birth stands in it.
namespace codfis {

inline constexpr QStringView LettereMesi = u"ABCDEHLMPRST";  ///< a letter a month
inline constexpr int GiornoDonne = 40;                       ///< added to the day of a woman

}  // namespace codfis

/// The code, always in its base form: the variants for equal codes are the ministry's business.
///
/// Letters without an accent count, whatever their case; an accented letter, a blank, an apostrophe count for
/// nothing. The code of the municipality is appended as it is.
/// @param Sesso "F" (any case) for a woman, anything else a man
/// @param CodiceComune four characters; with another number of them the check character covers what stands in
///        the first 15 places: a place without a character counts 0, a character in no table 16383
/// @return 16 characters when the code of the municipality has four
[[nodiscard]] QString CalcoloCodFis(const QString& Cognome, const QString& Nome, const QDate& DataNascita,
                                    const QString& Sesso, const QString& CodiceComune);
