// How old the data behind a calculator are, as its window says it.
#pragma once

#include "calculators/norme/etadati.h"

#include <QStringList>

#include <optional>

class QLabel;

/// Writes the age of the data, in words and in the colour of its grade: that of all texts while they are
/// fresh, a warm one where something may be out, that of what is wrong where it is out for long.
void MostraEta(QLabel* Dove, const EtaDati& Eta);

/// The same as lines of a sheet; none without data.
[[nodiscard]] QStringList RigheEta(const std::optional<EtaDati>& Eta);

/// What the rate archive covers; none where it is not there or cannot be read, which whoever calculates with
/// it learns.
[[nodiscard]] std::optional<CoperturaTassi> CoperturaLetta(const QString& Archivio);
