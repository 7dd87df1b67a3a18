#include "platform/document/lettorertf_segni.h"

#include "platform/base/segni.h"

#include <algorithm>
#include <limits>

namespace {

bool LetteraAscii(QChar C)
{
    return (C >= u'a' && C <= u'z') || (C >= u'A' && C <= u'Z');
}

/// Ends of line of the file, and the zeros that some writers leave.
bool Niente(QChar C)
{
    return C == u'\r' || C == u'\n' || C == u'\0';
}

/// Value of a hexadecimal digit, -1 of another character.
int Esadecimale(QChar C)
{
    if (ECifra(C))
        return C.unicode() - u'0';
    if (C >= u'a' && C <= u'f')
        return C.unicode() - u'a' + 10;
    if (C >= u'A' && C <= u'F')
        return C.unicode() - u'A' + 10;
    return -1;
}

}  // namespace

SegnoRtf SegniRtf::Prossimo()
{
    while (Posto < Testo.size() && Niente(Testo[Posto]))
        ++Posto;
    if (Posto == Testo.size())
        return {};
    switch (Testo[Posto].unicode()) {
    case u'{':
        ++Posto;
        return {SegnoRtf::Apre};
    case u'}':
        ++Posto;
        return {SegnoRtf::Chiude};
    case u'\\':
        ++Posto;
        return Comando();
    default:
        return Brano();
    }
}

SegnoRtf SegniRtf::Comando()
{
    if (Posto == Testo.size())
        return {};
    if (LetteraAscii(Testo[Posto]))
        return Parola();
    SegnoRtf Simbolo{SegnoRtf::Simbolo};
    Simbolo.Segno = Testo[Posto++];
    return Simbolo.Segno == u'\'' ? ByteEsadecimale() : Simbolo;
}

SegnoRtf SegniRtf::Parola()
{
    SegnoRtf Letta{SegnoRtf::Parola};
    const qsizetype Inizio = Posto;
    while (Posto < Testo.size() && LetteraAscii(Testo[Posto]))
        ++Posto;
    Letta.Testo = Testo.sliced(Inizio, Posto - Inizio);
    Letta.Numero = LeggiNumero();
    if (Posto < Testo.size() && Testo[Posto] == u' ')
        ++Posto;
    if (Letta.Testo == u"bin")
        Posto += std::clamp<qsizetype>(Letta.Numero.value_or(0), 0, Testo.size() - Posto);
    return Letta;
}

std::optional<int> SegniRtf::LeggiNumero()
{
    const bool Meno = Posto + 1 < Testo.size() && Testo[Posto] == u'-' && ECifra(Testo[Posto + 1]);
    Posto += Meno ? 1 : 0;
    if (Posto == Testo.size() || !ECifra(Testo[Posto]))
        return std::nullopt;
    qint64 Valore = 0;
    for (; Posto < Testo.size() && ECifra(Testo[Posto]); ++Posto)
        Valore =
            std::min<qint64>(Valore * 10 + (Testo[Posto].unicode() - u'0'), std::numeric_limits<int>::max());
    return static_cast<int>(Meno ? -Valore : Valore);
}

SegnoRtf SegniRtf::ByteEsadecimale()
{
    SegnoRtf Letto{SegnoRtf::Byte};
    int Valore = 0;
    int Cifre = 0;
    for (; Cifre < 2 && Posto < Testo.size(); ++Cifre, ++Posto) {
        const int Unita = Esadecimale(Testo[Posto]);
        if (Unita < 0)
            break;
        Valore = Valore * 16 + Unita;
    }
    if (Cifre == 2)
        Letto.Carattere = static_cast<char>(Valore);
    return Letto;
}

SegnoRtf SegniRtf::Brano()
{
    const auto Inizio = Testo.begin() + Posto;
    const auto Fine = std::find_if(Inizio, Testo.end(),
                                   [](QChar C) { return C == u'\\' || C == u'{' || C == u'}' || Niente(C); });
    SegnoRtf Letto{SegnoRtf::Brano};
    Letto.Testo = Testo.sliced(Posto, Fine - Inizio);
    Posto += Letto.Testo.size();
    return Letto;
}
