// Text as a search without regard to case and accents compares it.
#pragma once

#include <QString>

/// Without case and accents: "NICOLÒ" and "nicolo" are alike, and so are the two kinds of apostrophe. What a
/// compatibility form writes as several letters is those letters ("ﬁ" is "fi").
[[nodiscard]] QString TestoPiano(const QString& Testo);
