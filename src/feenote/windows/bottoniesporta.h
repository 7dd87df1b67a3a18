// The buttons of the print tab that lead to a word processor.
#pragma once

#include <functional>
#include <optional>

struct Errore;

/// Brings the word-processor file up to date, FileDocumento: says that it is in use, or recomposes. A file
/// that is missing then is reported, and so is one that could not be written.
/// @param Ricomponi the window's composition, which gives what AnteprimaConEsportazione did; a failure that
///        it throws is shown
/// @return true when the file is that of the composition
[[nodiscard]] bool AggiornaDocumento(int Indice, const std::function<std::optional<Errore>()>& Ricomponi);

/// The button "word": the file is brought up to date, and opened by "printword" where that was done.
/// @return true when the document was brought up to date and handed on
bool EsportaInWord(int Indice, const std::function<std::optional<Errore>()>& Ricomponi);

/// The button "wp": opens the word-processor file in the alternative editor of the settings; nothing while
/// there is none.
void AvviaEditor(int Indice);
