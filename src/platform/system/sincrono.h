// What must outlive a loss of power before something else is given up for it.
#pragma once

#include <QString>

/// Waits until every byte of a finished file stands on its disk. Whoever then puts it in the place of another
/// one has either of them whole, whenever the power goes.
/// @throws Errore 61 no room, 57 the disk fails, 75 when the file cannot be opened
void ScriviSulDisco(const QString& File);

/// Waits until the folder of a file holds its name as it stands now, behind a rename or a new file. A medium
/// that knows no such wait is taken at its word.
/// @throws Errore 57 the disk fails, 61 no room
void SincronizzaCartellaDi(const QString& File);
