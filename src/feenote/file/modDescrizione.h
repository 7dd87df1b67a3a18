// A fee note described in JSON; shown as JSON it is modNotaJson.
//
// The form is documented in docs/cli.md. It names things as the window shows them and is read as a user
// would fill the window: the same rules accept or refuse, and the first refusal names its field.
#pragma once

#include "feenote/parcella.h"

#include <QByteArray>

/// Bytes of a description; more is refused.
constexpr qsizetype MassimoDescrizione = qsizetype{4} * 1024 * 1024;

/// Makes a note from a description.
/// @throws Errore 321 when it is no JSON, 13 a wrong type, 5 an unknown name or a value that the rules
///         refuse, 6 a number too large, 3163 a text too long: each with the field's name; and as
///         OpenDatabase for parcelle.mdb
[[nodiscard]] Parcella CreaDaDescrizione(const QByteArray& Json);
