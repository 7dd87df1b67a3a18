// What a PDF says of itself beside its pages.
#pragma once

#include <QByteArray>

struct Proprieta;

/// A PDF of Qt's writer with author and subject, with Italian as the language that readers speak it in, and
/// with its title shown by viewers in place of the file's name. Qt's writer knows the title alone. What is no
/// such PDF comes back as it is.
[[nodiscard]] QByteArray ConDati(const QByteArray& Pdf, const Proprieta& Dati);
