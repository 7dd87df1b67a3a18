#include "platform/base/testopiano.h"

#include <algorithm>
#include <array>

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

namespace {

constexpr int PrimoLatino = 0x80;
constexpr int FineLatini = 0x250;

/// What each accented Latin letter becomes; they take two bytes in UTF-8.
const std::array<QByteArray, FineLatini - PrimoLatino>& Latini()
{
    static const auto Tabella = [] {
        std::array<QByteArray, FineLatini - PrimoLatino> Nuova;
        for (int Codice = PrimoLatino; Codice < FineLatini; ++Codice)
            Nuova[size_t(Codice - PrimoLatino)] = TestoPiano(QString(QChar(Codice))).toUtf8();
        return Nuova;
    }();
    return Tabella;
}

/// Appends a text of plain and accented Latin letters. @return false for one that holds anything else; what
/// was appended of it is to be taken back
bool AccodaLatino(QByteArray& A, QByteArrayView Utf8)
{
    constexpr qsizetype Crescita = 3;  // "½" are five bytes where it was two
    constexpr unsigned Cima = 0x80;    // of a byte that is no plain letter
    constexpr unsigned Seguito = 0x3F;
    constexpr int BitSeguito = 6;
    const qsizetype Da = A.size();
    A.resize(Da + Utf8.size() * Crescita);
    char* Dove = A.data() + Da;
    const auto* Fine = reinterpret_cast<const unsigned char*>(Utf8.data()) + Utf8.size();
    for (const auto* C = Fine - Utf8.size(); C != Fine; ++C) {
        if (*C < Cima) {
            *Dove++ = char(*C >= 'A' && *C <= 'Z' ? *C - 'A' + 'a' : *C);
            continue;
        }
        const bool Due = *C >= 0xC2 && *C < 0xCA && C + 1 != Fine && (C[1] & ~Seguito) == Cima;
        const unsigned Codice = Due ? (*C & 0x1FU) << BitSeguito | (C[1] & Seguito) : unsigned(FineLatini);
        if (Codice >= unsigned(FineLatini))
            return false;
        const QByteArray& Piana = Latini()[Codice - PrimoLatino];
        Dove = std::copy(Piana.cbegin(), Piana.cend(), Dove);
        ++C;
    }
    A.truncate(Dove - A.constData());
    return true;
}

}  // namespace

void AccodaPiano(QByteArray& A, QByteArrayView Utf8)
{
    const qsizetype Da = A.size();
    if (AccodaLatino(A, Utf8))
        return;
    A.truncate(Da);
    A += TestoPiano(QString::fromUtf8(Utf8)).toUtf8();
}
