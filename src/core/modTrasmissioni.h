// The counter of the files of electronic invoices. It belongs to the office's settings, as that of invoices,
// and steps whenever a file is about to be written: a number that was taken is never given again, whatever
// becomes of its file.
#pragma once

#include <QString>

/// The last number: a file's name has room for five characters in base 36.
inline constexpr int UltimoProgTrasm = 60466175;

/// "0000C" for 12: the number as the file's name and the invoice hold it.
[[nodiscard]] QString TestoProgTrasm(int Numero);

/// The number that the next file would take by what the settings hold now; it takes none.
/// @throws Errore 1000 with a sentence when the counter is at its end, no number, or lost with damaged
/// settings that nobody has stored again
[[nodiscard]] int ProssimaTrasmissione();

/// Takes the next number, in turn with other programs; it is stored when this returns.
/// @throws Errore 1000 as above, 75 when it cannot be stored: nothing is taken then
[[nodiscard]] int PrendiTrasmissione();
