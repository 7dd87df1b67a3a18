// How the rules read a tree of sources.
#pragma once

#include "architettura/regole.h"

/// The lines of a file; none where it cannot be read.
[[nodiscard]] QStringList Righe(const QString& Percorso);

/// The files of the tree that are read, by their path below the root, in order.
[[nodiscard]] QStringList Sorgenti(const Casa& Questa, const QStringList& Estensioni);

[[nodiscard]] QString CartellaDi(const QString& Percorso);

/// Where a sentence begins: file and line, which is counted from 0.
[[nodiscard]] QString Posto(const QString& Percorso, qsizetype Riga);
