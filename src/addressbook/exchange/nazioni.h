// Countries as files of other programs write them.
#pragma once

#include <QString>

/// The two letters of a country by its name in Italian, English or its own language; two letters come back as
/// capitals, and any other text as it is.
[[nodiscard]] QString SiglaNazione(const QString& Testo);
