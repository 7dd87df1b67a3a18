// English words in what an Italian user reads.
#pragma once

#include <QStringList>

/// The English words of a text that a user reads, as they stand there; empty where there are none.
[[nodiscard]] QStringList ParoleInglesi(const QString& Testo);
