#include "platform/base/testopiano.h"

#include <algorithm>

QString TestoPiano(const QString& Testo)
{
    const bool Semplice = std::ranges::all_of(Testo, [](QChar C) { return C.unicode() < 0x80; });
    if (Semplice)
        return Testo.toLower();
    QString Scomposto = Testo.toCaseFolded().normalized(QString::NormalizationForm_KD);
    Scomposto.removeIf([](QChar C) { return C.category() == QChar::Mark_NonSpacing; });
    // Word processors write the one, keyboards the other.
    Scomposto.replace(u'\u2019', u'\'');
    Scomposto.replace(u'\u2018', u'\'');
    return Scomposto;
}
