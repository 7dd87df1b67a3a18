// The municipalities: comuni.csv (nome;provincia;codice) and the day of that list, comuni_stato.csv (al), in;
// Comuni.mdb out.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

/// A municipality, a suppressed one, a former name, or a foreign state (province EE).
struct ComuneTabella
{
    QString Nome;
    QString Provincia;  ///< two letters
    QString Codice;     ///< cadastral code: a letter and three digits
};

/// Reads and checks the table; the rows come in the order in which the engine compares names, without regard
/// to case.
/// @throws Errore 53 the table is missing, 5 it is refused: two rows with the same name (the lookup would
///         never reach the second), a province or a code that is none
[[nodiscard]] QList<ComuneTabella> LeggiComuni(const QString& Cartella);

/// The day whose municipalities the table holds. @throws Errore 53 the table is missing, 5 it is refused
[[nodiscard]] QDate LeggiStatoComuni(const QString& Cartella);

/// Creates the database with the table Comuni and its index COMUNI2L, and keeps the day of the list beside
/// them, as the annotation "Al" (gg/mm/aaaa).
/// @throws Errore as CreateDatabase and Database::CreaTabella
void ScriviComuni(const QList<ComuneTabella>& Comuni, const QDate& Al, const QString& Percorso);
