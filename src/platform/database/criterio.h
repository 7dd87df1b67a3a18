// The find criteria of recordsets, read into a WHERE clause with bound values.
#pragma once

#include <QString>
#include <QVariant>

#include <functional>
#include <optional>

enum class SegnoTesto {
    Uguale,
    Diverso,
    Minore,
    MinoreUguale,
    Maggiore,
    MaggioreUguale,
    Simile,     ///< Like
    Dissimile,  ///< Not Like
};

/// One comparison of a column with a text, or with a pattern.
struct ConfrontoTesto
{
    QString Colonna;  ///< quoted
    SegnoTesto Segno = SegnoTesto::Uguale;
    QString Testo;
};

/// A condition in SQLite's SQL; user values stand in `Valori`, in the order of the "?".
struct Condizione
{
    QString Sql;
    QVariantList Valori;
    /// The same in parts, where the whole criterion is one such comparison.
    std::optional<ConfrontoTesto> Solo;
};

/// Reads a find criterion (its form is told at Recordset::FindFirst).
///
/// @param IdentificaColonna gives the quoted column for a name, empty when there is none
/// @throws Errore 3077 a criterion that cannot be read, 3070 an unknown column
[[nodiscard]] Condizione LeggiCriterio(const QString& Criterio,
                                       const std::function<QString(const QString& Nome)>& IdentificaColonna);

/// An SQL identifier in double quotes, quotes inside doubled.
[[nodiscard]] QString Identificatore(const QString& Nome);
