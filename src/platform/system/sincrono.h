// What must outlive a loss of power before something else is given up for it.
#pragma once

#include <QString>

/// Waits until every byte of a finished file stands on its disk. Whoever then puts it in the place of another
/// one has either of them whole, whenever the power goes.
/// @throws Errore 61 when the disk refuses, 75 when the file cannot be opened
void ScriviSulDisco(const QString& File);
