// Whether a file may take the place of the rate archive.
#pragma once

#include <QString>

/// What is wrong with a new archive, in a few words; empty when it may take the place of the present one.
///
/// It must be a database of this program's kind with the four tables, their columns, their order of search
/// and rows in each, and none of them may end before that of the present archive. A present archive that
/// cannot be read, or is missing, rules nothing out.
[[nodiscard]] QString DifettoTassi(const QString& Nuovo, const QString& Presente);
