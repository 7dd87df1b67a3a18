// Text as a search without regard to case and accents compares it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// Without case and accents: "NICOLÒ" and "nicolo" are alike, and so are the two kinds of apostrophe. What a
/// compatibility form writes as several letters is those letters ("ﬁ" is "fi").
[[nodiscard]] QString TestoPiano(const QString& Testo);

/// Appends the same of a text in UTF-8 to another, far cheaper where it is plain letters.
void AccodaPiano(QByteArray& A, QByteArrayView Utf8);
