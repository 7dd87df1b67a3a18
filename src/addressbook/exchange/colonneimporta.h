// Which column of a foreign file goes into which field of the archive.
#pragma once

#include "platform/database/database.h"

#include <QList>
#include <QString>
#include <QStringList>

/// Where a column can go: a field of the archive, or a part of one.
struct MetaColonna
{
    QString Chiave;  ///< name of the field, or one of the parts below; empty: the column is left
    QString Titolo;  ///< as it is shown

    friend bool operator==(const MetaColonna&, const MetaColonna&) = default;
};

/// Parts that make the name and the address with others.
namespace parte {

inline constexpr QStringView Cognome = u"+Cognome";
inline constexpr QStringView Nome = u"+Nome";
inline constexpr QStringView Organizzazione = u"+Organizzazione";
inline constexpr QStringView Civico = u"+Civico";

}  // namespace parte

/// What the columns of a file can be matched to, the way to leave one first. The archive's own key is none.
[[nodiscard]] QList<MetaColonna> MeteDi(const QList<Campo>& Campi);

/// The matching by name, heading and synonym, one key for each title, each field once; a column that nothing
/// matches is left. Case, accents, blanks and signs play no part.
[[nodiscard]] QStringList AbbinaColonne(const QStringList& Titoli, const QList<Campo>& Campi);

/// A column that the user has matched by hand.
struct SceltaColonna
{
    QString Titolo;   ///< of the column, as the file was read then
    int Volta = 0;    ///< which one of this title, from 0
    int Posto = 0;    ///< among all columns
    int Colonne = 0;  ///< that the file had then
    QString Chiave;   ///< where it goes

    friend bool operator==(const SceltaColonna&, const SceltaColonna&) = default;
};

/// The choice of a key for one of these columns.
[[nodiscard]] SceltaColonna SceltaDi(const QStringList& Titoli, int Posto, const QString& Chiave);

/// AbbinaColonne for a file that is read in another way. What was chosen by hand stays with the column of its
/// title; without one, where the file still has as many columns, with the one in its place. Of two choices
/// for a column the later one holds. The other columns are matched as ever, but to no field that was chosen.
/// @param PerPosto false where places mean nothing, as in another table
[[nodiscard]] QStringList AbbinaConScelte(const QStringList& Titoli, const QList<Campo>& Campi,
                                          const QList<SceltaColonna>& Scelte, bool PerPosto);

/// True when at least one of the texts is a title that AbbinaColonne knows.
[[nodiscard]] bool SembranoTitoli(const QStringList& Testi);
