// What a file says of its age, where the disk keeps none.
#pragma once

#include "platform/base/errore.h"

/// The disk has refused the date that a file was to have, as a share may whose files have an owner of their
/// own. Whoever needs the date for something says so.
struct DataRifiutata : Errore
{
    DataRifiutata() : Errore(errori::Accesso) {}
};
