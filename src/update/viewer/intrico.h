// Pages that would keep the toolkit's layout busy for minutes, or take its stack.
#pragma once

#include <QByteArray>

/// Whether a page asks for more than the program's own ever do: more than 32 elements inside each other, more
/// than six tables, cells that span more than a few hundred others.
///
/// Read as the toolkit's parser reads it: an end that closes nothing counts for nothing, and what stands in
/// quotes, in comments and in styles is no element.
[[nodiscard]] bool Intricata(const QByteArray& Html);
