// The buttons of the print tab that lead to a word processor.
#pragma once

#include <functional>
#include <optional>

struct Errore;

/// The button "word", on FileDocumento: says that the file is in use, or recomposes, and opens it by
/// "printword". A file that is missing then is reported, and so is one that could not be brought up to date:
/// it is not opened.
/// @param Ricomponi the window's composition, which gives what AnteprimaConEsportazione did; a failure that
///        it throws is shown
/// @return true when the document was brought up to date and handed on
bool EsportaInWord(int Indice, const std::function<std::optional<Errore>()>& Ricomponi);

/// The button "wp": opens the word-processor file in the alternative editor of the settings; nothing while
/// there is none.
void AvviaEditor(int Indice);
