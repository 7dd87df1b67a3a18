// DatiStudio.mdb: the law-office archive as delivered, empty.
#pragma once

#include <QString>

/// Creates the archive with the empty tables clienti and controparti.
///
/// The address book draws its grid, its card and the choice of a name from the visible columns, in their
/// order: the key comes first and the name second, as the fee note takes them, and whatever the office
/// shall be able to fill in is visible.
/// @throws Errore as CreateDatabase and Database::CreaTabella
void ScriviArchivioStudio(const QString& Percorso);
