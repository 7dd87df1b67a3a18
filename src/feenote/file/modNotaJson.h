// A fee note shown as JSON, in the form that docs/cli.md documents.
#pragma once

#include "feenote/parcella.h"

#include <QByteArray>

/// The note as an indented JSON object: parameters, lines, payments, rates, parties, print data, sums.
/// Amounts are numbers, absent dates empty texts; of the password only its presence is shown.
[[nodiscard]] QByteArray DescriviNota(const Parcella& Nota);
