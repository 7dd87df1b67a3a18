// Files on their way to another program: a document that a mail takes along.
#pragma once

#include <QString>

#include <functional>

/// How long such a file stays at least: a mail program reads it again when the mail leaves.
inline constexpr int OreInvio = 1;

/// Writes a document into a new folder of its own, which nobody else may look into, and notes there what was
/// written: that, and nothing else, is removed some day.
/// @param Nome its file name
/// @param Scrivi writes the file of this path
/// @return the path of the document
/// @throws Errore 75 when the folder cannot be made, and whatever Scrivi throws
[[nodiscard]] QString ScriviInvio(const QString& Nome,
                                  const std::function<void(const QString& File)>& Scrivi);

/// Removes the documents that were written longer than OreInvio ago, and their folders. A document that was
/// changed since stays, and so does a folder in which anything else stands. The start and the end of the
/// program call it; what cannot be removed waits for the next time.
void SpazzaInvii();
