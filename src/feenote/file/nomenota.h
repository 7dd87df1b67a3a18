// The name of a note, and that of its file.
#pragma once

#include <QString>

/// What the name of a note's file ends in.
inline constexpr QStringView EstensioneNota = u".mdb";

/// A file's name without that ending, whatever its case; the folders in it stay.
[[nodiscard]] QString SenzaEstensione(const QString& Nome);

/// The name of a note as it is shown: that of its file, as it is spelled on the disk, without the ending.
[[nodiscard]] QString NomeMostrato(const QString& File);

/// True for a path in the folder of templates.
[[nodiscard]] bool NellaCartellaModelli(const QString& Percorso);
