// What the program says of a file that it has just written, and the way to it.
#pragma once

#include <QString>

/// Says that a file was written, as a message box does, with a second button that opens its folder. Enter and
/// Esc mean that it was read.
/// @param Testo the whole sentence
void MostraEsportato(const QString& Testo, const QString& File);

/// Asks whether a file that is already there may be replaced: the dialogs that choose a place do not.
/// @return true where nothing is there, or at a yes
[[nodiscard]] bool Sostituibile(const QString& File);

/// Opens the folder of a file in the system's file manager; a message says so where the system opens none.
void ApriCartellaDi(const QString& File);
