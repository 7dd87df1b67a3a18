// The text of a settings store: sections, keys and texts as the bytes of a file.
//
// UTF-8, perhaps with its mark, lines "[section]" and "key=text". A text may stand between quotes; "\n",
// "\"", "\\", "\x" and a number in hexadecimal stand for a sign, a comma that no quotes hold parts a list,
// whose blanks do not count, and ";" begins a comment. Sections and keys are compared without case, "%41" in
// one of them is "A"; of several lines of a key the last one counts. Bytes that are none of this are passed
// over and kept.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

/// The text of a key; none when it is missing, or stored as what is no text.
[[nodiscard]] std::optional<QString> ValoreDelDeposito(const QByteArray& Deposito, const QString& Sezione,
                                                       const QString& Chiave);

/// The store with these texts; whatever else it holds stays as it stands.
[[nodiscard]] QByteArray ConValoriNelDeposito(const QByteArray& Deposito, const QString& Sezione,
                                              const QList<std::pair<QString, QString>>& Valori);
