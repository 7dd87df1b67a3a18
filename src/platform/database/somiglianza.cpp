#include "platform/database/somiglianza.h"

#include <QList>

#include <algorithm>
#include <cstring>

namespace {

constexpr char32_t Sostituto = U'\uFFFD';

/// Length announced by the first byte of a UTF-8 sequence, 0 for a byte that cannot begin one.
int LunghezzaSequenza(uchar Primo)
{
    if (Primo >= 0xf0 && Primo < 0xf5)
        return 4;
    if (Primo >= 0xe0)
        return Primo < 0xf0 ? 3 : 0;
    return Primo >= 0xc2 ? 2 : 0;
}

char32_t FuoriAscii(const char*& Posto, const char* Fine)
{
    const auto Primo = static_cast<uchar>(*Posto);
    const int Lunghezza = LunghezzaSequenza(Primo);
    ++Posto;
    if (Lunghezza == 0 || Fine - Posto < Lunghezza - 1)
        return Sostituto;
    char32_t Codice = Primo & (0x7f >> Lunghezza);
    for (int i = 0; i < Lunghezza - 1; ++i) {
        const auto Seguente = static_cast<uchar>(Posto[i]);
        if ((Seguente & 0xc0) != 0x80)
            return Sostituto;
        Codice = Codice << 6 | (Seguente & 0x3f);
    }
    Posto += Lunghezza - 1;
    return QChar::toCaseFolded(Codice);
}

constexpr quint64 Ognuno = 0x0101010101010101;

/// Eight ASCII letters in lower case. The sums carry into the high bit of each byte, which is free.
quint64 Abbassate(quint64 Lettere)
{
    const quint64 DaA = Lettere + Ognuno * (0x80 - 'A');
    const quint64 OltreZ = Lettere + Ognuno * (0x7f - 'Z');
    const quint64 Maiuscole = (DaA ^ OltreZ) & (Ognuno * 0x80);
    return Lettere | Maiuscole >> 2;
}

void AccodaCodice(QByteArray& A, char32_t Codice)
{
    const auto Seguente = [Codice](int Bit) { return char(0x80 | (Codice >> Bit & 0x3f)); };
    if (Codice < 0x80) {
        A.append(char(Codice));
    } else if (Codice < 0x800) {
        A.append(char(0xc0 | Codice >> 6)).append(Seguente(0));
    } else if (Codice < 0x10000) {
        A.append(char(0xe0 | Codice >> 12)).append(Seguente(6)).append(Seguente(0));
    } else {
        A.append(char(0xf0 | Codice >> 18)).append(Seguente(12)).append(Seguente(6)).append(Seguente(0));
    }
}

}  // namespace

char32_t ProssimoCarattere(const char*& Posto, const char* Fine)
{
    const auto Byte = static_cast<uchar>(*Posto);
    if (Byte >= 0x80)
        return FuoriAscii(Posto, Fine);
    ++Posto;
    return Byte >= 'A' && Byte <= 'Z' ? char32_t(Byte + ('a' - 'A')) : char32_t(Byte);
}

void AccodaSenzaMaiuscole(QByteArray& A, QByteArrayView Utf8)
{
    const qsizetype Prima = A.size();
    A.resize(Prima + Utf8.size());
    char* Dove = A.data() + Prima;
    const char* Posto = Utf8.begin();
    const char* const Fine = Utf8.end();
    constexpr qsizetype Otto = sizeof(quint64);
    for (quint64 Lettere = 0; Fine - Posto >= Otto; Posto += Otto, Dove += Otto) {
        std::memcpy(&Lettere, Posto, Otto);
        if ((Lettere & (Ognuno * 0x80)) != 0)
            break;
        Lettere = Abbassate(Lettere);
        std::memcpy(Dove, &Lettere, Otto);
    }
    for (; Posto != Fine && static_cast<uchar>(*Posto) < 0x80; ++Posto, ++Dove)
        *Dove = *Posto >= 'A' && *Posto <= 'Z' ? char(*Posto + ('a' - 'A')) : *Posto;
    if (Posto == Fine)
        return;
    // From the first other letter on the text may become longer.
    A.resize(Dove - A.constData());
    while (Posto != Fine)
        AccodaCodice(A, ProssimoCarattere(Posto, Fine));
}

int ConfrontaSenzaMaiuscole(QByteArrayView Primo, QByteArrayView Secondo)
{
    const char* P = Primo.begin();
    const char* S = Secondo.begin();
    while (P != Primo.end() && S != Secondo.end()) {
        const char32_t A = ProssimoCarattere(P, Primo.end());
        const char32_t B = ProssimoCarattere(S, Secondo.end());
        if (A != B)
            return A < B ? -1 : 1;
    }
    return int(P != Primo.end()) - int(S != Secondo.end());
}

Somiglianza::Somiglianza(const QString& Modello)
{
    const QStringView Vista(Modello);
    for (qsizetype i = 0; i < Vista.size(); ++i) {
        const QChar C = Vista[i];
        // A "]" right behind the opening belongs to the list's end: "[]" is the empty list.
        const qsizetype Chiusa = C == u'[' ? Vista.indexOf(u']', i) : -1;
        if (Chiusa > 0) {
            AggiungiLista(Vista.sliced(i + 1, Chiusa - i - 1));
            i = Chiusa;
        } else if (C == u'*') {
            if (Elementi.empty() || Elementi.back().Che != Tipo::Molti)
                Elementi.push_back({Tipo::Molti, 0, false, {}});
        } else if (C == u'?' || C == u'#') {
            Elementi.push_back({C == u'?' ? Tipo::Uno : Tipo::Cifra, 0, false, {}});
        } else {
            const bool Coppia = C.isHighSurrogate() && i + 1 < Vista.size() && Vista[i + 1].isLowSurrogate();
            const char32_t Codice = Coppia ? QChar::surrogateToUcs4(C, Vista[i + 1]) : C.unicode();
            Elementi.push_back({Tipo::Carattere, QChar::toCaseFolded(Codice), false, {}});
            i += Coppia;
        }
    }
}

void Somiglianza::AggiungiLista(QStringView Interno)
{
    const bool Negata = Interno.startsWith(u'!') && Interno.size() > 1;
    const QList<uint> Codici = Interno.sliced(Negata).toUcs4();
    if (Codici.isEmpty())
        return;
    Elemento Nuovo{Tipo::Lista, 0, Negata, {}};
    for (qsizetype i = 0; i < Codici.size(); ++i) {
        const bool Trattino = i + 2 < Codici.size() && Codici[i + 1] == u'-';
        const char32_t Da = QChar::toCaseFolded(char32_t(Codici[i]));
        Nuovo.Lista.push_back({Da, Trattino ? QChar::toCaseFolded(char32_t(Codici[i + 2])) : Da});
        i += Trattino ? 2 : 0;
    }
    Elementi.push_back(std::move(Nuovo));
}

bool Somiglianza::Vale(const Elemento& Voce, char32_t Carattere)
{
    switch (Voce.Che) {
    case Tipo::Carattere:
        return Voce.Carattere == Carattere;
    case Tipo::Cifra:
        return Carattere >= U'0' && Carattere <= U'9';
    case Tipo::Lista:
        return Voce.Negata != std::ranges::any_of(Voce.Lista, [Carattere](const Intervallo& I) {
                   return Carattere >= I.Da && Carattere <= I.A;
               });
    default:
        return true;
    }
}

// Only the last "*" is ever taken up again: an earlier one that took more could not help the rest.
bool Somiglianza::Corrisponde(QByteArrayView Utf8) const
{
    const char* Posto = Utf8.begin();
    const char* const Fine = Utf8.end();
    std::size_t Voce = 0;
    std::size_t DopoStella = 0;  // 0: no "*" met yet
    const char* Ripresa = nullptr;
    while (Posto != Fine) {
        if (Voce < Elementi.size() && Elementi[Voce].Che == Tipo::Molti) {
            DopoStella = ++Voce;
            Ripresa = Posto;
            continue;
        }
        const char* Seguente = Posto;
        const char32_t Carattere = ProssimoCarattere(Seguente, Fine);
        if (Voce < Elementi.size() && Vale(Elementi[Voce], Carattere)) {
            ++Voce;
            Posto = Seguente;
        } else if (DopoStella > 0) {
            (void)ProssimoCarattere(Ripresa, Fine);
            Posto = Ripresa;
            Voce = DopoStella;
        } else {
            return false;
        }
    }
    return Voce == Elementi.size() || (Voce + 1 == Elementi.size() && Elementi[Voce].Che == Tipo::Molti);
}
