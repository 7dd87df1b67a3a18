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

/// True when at least one of the texts is a title that AbbinaColonne would match in the delivered archive.
[[nodiscard]] bool SembranoTitoli(const QStringList& Testi);
