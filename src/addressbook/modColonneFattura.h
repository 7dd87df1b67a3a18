// The columns of an archive that the electronic invoice takes its buyer from.
//
// An archive that comes from an older version, or from elsewhere, may lack some of them: it is used as it is,
// and gets them once its office says so.
#pragma once

#include "platform/database/database.h"

#include <QList>
#include <QString>

/// The columns, with type, width and heading as the delivered archive has them, in its order.
[[nodiscard]] QList<Campo> ColonneFattura();

/// Those of them that a table's columns lack.
[[nodiscard]] QList<Campo> ColonneFatturaMancanti(const QList<Campo>& Campi);

/// How the archive of the settings stands.
enum class StatoColonne {
    Intere,    ///< it has them all, or there is none that could be asked
    Mancanti,  ///< some are missing, and can be added
    Bloccate,  ///< some are missing, and nothing can be added: a read-only file, an archive of Access
};
/// @param Mancano where not null, the headings of those that the table of clients lacks
[[nodiscard]] StatoColonne StatoColonneFattura(QStringList* Mancano = nullptr);

/// Adds what is missing to clients and counterparties of the archive of the settings, to both or none.
/// @throws Errore as Database::AggiungiColonne
void AggiungiColonneFattura();
