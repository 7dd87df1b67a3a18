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

void AccodaPiano(QByteArray& A, QByteArrayView Utf8)
{
    const auto Semplice = [](char C) { return static_cast<unsigned char>(C) < 0x80; };
    if (!std::ranges::all_of(Utf8, Semplice)) {
        A += TestoPiano(QString::fromUtf8(Utf8)).toUtf8();
        return;
    }
    const qsizetype Da = A.size();
    A.append(Utf8);
    for (char* C = A.data() + Da; C != A.data() + A.size(); ++C)
        if (*C >= 'A' && *C <= 'Z')
            *C = char(*C - 'A' + 'a');
}
