// The one look of the program's pages: they carry structure and class names, never a colour or a size.
#pragma once

#include <QString>

/// The style sheet of a page in the palette in use. Classes: "nota" for an aside, "attenzione" for what must
/// not be missed (both on the one cell of a table), "cifre" for cells of amounts, "piede" for the last line.
[[nodiscard]] QString FoglioDiStile();

/// The same on white paper, whatever palette is in use.
[[nodiscard]] QString FoglioDiStileSuCarta();
