// The script: a fee note from the desktop's icon to the PDF, by the real windows.
#pragma once

#include <QString>

/// Plays the script. Each step prints one line on standard output and leaves its picture in the folder,
/// beside the note, its text, its PDF and the pictures of its pages.
///
/// @param Cartella folder of what is left, with the separator at its end; it exists
/// @return false when a step could not be done; the line on standard error says which
[[nodiscard]] bool Recita(const QString& Cartella);
