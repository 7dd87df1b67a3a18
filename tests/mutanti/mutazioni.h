// Seeded damage to files: bytes, pieces, lines, and what only the engine can do to a database.
#pragma once

#include <QByteArray>
#include <QString>

#include <random>

using Caso = std::mt19937;

/// A whole number between these bounds, both of them included.
[[nodiscard]] int Fra(Caso& Dado, int Da, int A);

/// Changed, cut, doubled or exchanged bytes; the more seldom the worse.
[[nodiscard]] QByteArray MutaByte(QByteArray Sano, Caso& Dado);

/// Lines and words of a text taken out, doubled, exchanged, or replaced by what readers stumble over.
[[nodiscard]] QByteArray MutaTesto(const QByteArray& Sano, Caso& Dado);

/// Statements run on a database file: other types in its cells, tables and columns gone or renamed, views in
/// their place, indexes gone. What fails is passed over.
void MutaSchema(const QString& File, Caso& Dado);
