// The text files of sections and keys that the program reads at its start, when they are damaged: a desktop
// that has lost its icons says which file it was.
#pragma once

#include <QString>
#include <QStringView>

/// What of a file can be relied on.
enum class Lettura {
    Assente,      ///< there is none
    Illeggibile,  ///< a folder, or one that nobody may read: what it holds counts as nothing
    Guasta,       ///< without the section, or with bytes that no text has: emptied, or half written
    Troncata,     ///< its last line has no end: harmless unless what it belongs to is incomplete
    Intera,
};

/// Looks at a file, and tells one that cannot be read: its number, the description and the path.
/// @param Sezione the section without which it is none of the program's
[[nodiscard]] Lettura EsaminaIni(const QString& File, QStringView Sezione);

/// Tells a sentence of a file once, as long as the file stays on the disk as it is: the same one is read at
/// the start, by the settings and before each save.
void DiDelFile(const QString& File, const QString& Frase);
