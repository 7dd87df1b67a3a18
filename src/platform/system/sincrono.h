// What must outlive a loss of power before something else is given up for it.
#pragma once

#include "platform/base/errore.h"

#include <QString>

/// What NonConfermato says behind the reason, with the file's name.
inline constexpr QStringView FraseAlSuoPosto = u"il file %1 è però al suo posto";

/// The disk has refused to confirm a file that stands in its place: every program reads it, though a loss of
/// power might still bring back what was there. Whoever says that something was not written asks for it
/// first.
struct NonConfermato : Errore
{
    /// @param File its path
    NonConfermato(const Errore& Guasto, const QString& File);
};

/// Waits until every byte of a finished file stands on its disk. Whoever then puts it in the place of another
/// one has either of them whole, whenever the power goes.
/// @throws Errore 61 no room, 57 the disk fails, 75 when the file cannot be opened
void ScriviSulDisco(const QString& File);

/// Waits until the folder of a file holds its name as it stands now, behind a rename or a new file. A medium
/// that knows no such wait is taken at its word.
/// @throws NonConfermato 57 the disk fails, 61 no room
void SincronizzaCartellaDi(const QString& File);
