// A table as strips of paper.
#pragma once

#include "platform/pages/stesura.h"

/// Appends the rows of a table, its text and its stretch of the text stream.
void StendiTabella(Stesura& Fatta, const Tabella& Questa, const AreaStampa& Area, FontDocumento& Font);
