// The one way in which a computation by the norms refuses what it was asked.
#pragma once

#include "platform/base/errore.h"

#include <QString>

/// @throws Errore 5 with the sentence
[[noreturn]] inline void Rifiuta(const QString& Frase)
{
    throw Errore(errori::Argomento, Frase);
}
