// The text of a settings store: sections, keys and texts as the bytes of a file.
//
// UTF-8, perhaps with its mark, lines "[section]" and "key=text". A text may stand between quotes; "\n",
// "\"", "\\", "\x" and a number in hexadecimal stand for a sign, a comma that no quotes hold parts a list,
// whose blanks do not count, and ";" begins a comment. Sections and keys are compared without case, "%41" in
// one of them is "A"; of several lines of a key the last one counts. Bytes that are none of this are passed
// over and kept.
//
// Two comments, one before all else and one behind it, tell a whole store from one that was cut short. A
// store that somebody has written by hand has neither.
//
// The form is that of QSettings, which tests hold this one against. The class itself took a file that a full
// disk had cut short for a whole one, so that half of the settings stood in the place of all; it writes
// the whole store anew without the lines that it does not understand, and of a failure it has no number.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

/// The text of a key; none when it is missing, or stored as what is no text. A store that was cut short has
/// lost the line that the cut has left open: the first digit of a number is another number.
[[nodiscard]] std::optional<QString> ValoreDelDeposito(const QByteArray& Deposito, const QString& Sezione,
                                                       const QString& Chiave);

/// What a store cannot have come to by being written.
enum class DannoDeposito {
    Nessuno,
    Vuoto,     ///< nothing, or blanks: what is written holds a text at least
    Estraneo,  ///< no section, and more than the two comments
    Troncato,  ///< the first comment without the last
};
[[nodiscard]] DannoDeposito DannoDelDeposito(const QByteArray& Deposito);

/// The store without the line that a cut has left open; any other store as it is.
[[nodiscard]] QByteArray SenzaRigaTronca(const QByteArray& Deposito);

/// The store between its two comments, each of them once.
[[nodiscard]] QByteArray DepositoIntero(const QByteArray& Deposito);

/// The store with these texts; whatever else it holds stays as it stands.
[[nodiscard]] QByteArray ConValoriNelDeposito(const QByteArray& Deposito, const QString& Sezione,
                                              const QList<std::pair<QString, QString>>& Valori);
