// The order of a text column as people read it. The engine would fold both texts of each of its comparisons;
// here each text is folded once.
#include "platform/database/insieme.h"

#include "platform/base/testopiano.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype MassimoCaratteri = 255;

/// A row to be sorted: the first bytes of its text as a number, and where the whole of it stands.
struct Voce
{
    quint64 Prefisso = 0;
    size_t Inizio = 0;
    int Lunga = -1;  ///< bytes; -1 for Null
    int Posto = 0;   ///< among the rows in the order of their keys
};

/// At most so many characters, whole ones.
QByteArrayView Troncato(QByteArrayView Utf8)
{
    if (Utf8.size() <= MassimoCaratteri)
        return Utf8;
    qsizetype Caratteri = 0;
    for (qsizetype i = 0; i < Utf8.size(); ++i) {
        const bool Seguito = (static_cast<unsigned char>(Utf8[i]) & 0xC0) == 0x80;
        if (!Seguito && ++Caratteri > MassimoCaratteri)
            return Utf8.first(i);
    }
    return Utf8;
}

quint64 PrefissoDi(QByteArrayView Testo)
{
    char Byte[sizeof(quint64)] = {};
    std::memcpy(Byte, Testo.data(), std::min(sizeof(Byte), size_t(Testo.size())));
    return qFromBigEndian<quint64>(Byte);
}

/// Below, at or above 0; Null stands before every text.
int Confronta(const Voce& A, const Voce& B, const QByteArray& Testi)
{
    if (A.Lunga < 0 || B.Lunga < 0)
        return int(B.Lunga < 0) - int(A.Lunga < 0);
    if (A.Prefisso != B.Prefisso)
        return A.Prefisso < B.Prefisso ? -1 : 1;
    const auto Intera = [&](const Voce& Una) {
        return std::string_view(Testi.constData() + Una.Inizio, size_t(Una.Lunga));
    };
    return Intera(A).compare(Intera(B));
}

}  // namespace

void Insieme::LeggiChiaviOrdinate(const QString& Colonna, bool Discendente)
{
    std::vector<qint64> PerChiave;
    std::vector<Voce> Voci;
    QByteArray Testi;
    Istruzione Righe(*Da.Conn, u"SELECT %1, %2 FROM %3 ORDER BY %1"_s.arg(Da.Chiave, Colonna, Da.Tabella));
    while (Righe.Avanza()) {
        Voce Nuova{.Inizio = size_t(Testi.size()), .Posto = int(PerChiave.size())};
        if (!Righe.ENullo(1)) {
            AccodaPiano(Testi, Troncato(Righe.Utf8(1)));
            const QByteArrayView Piano = QByteArrayView(Testi).sliced(qsizetype(Nuova.Inizio));
            Nuova.Lunga = int(Piano.size());
            Nuova.Prefisso = PrefissoDi(Piano);
        }
        PerChiave.push_back(Righe.Intero(0));
        Voci.push_back(Nuova);
    }
    std::ranges::sort(Voci, [&](const Voce& A, const Voce& B) {
        const int Esito = Confronta(A, B, Testi);
        return Esito != 0 ? (Esito < 0) != Discendente : A.Posto < B.Posto;
    });
    Chiavi.clear();
    Chiavi.reserve(qsizetype(Voci.size()));
    Crescenti = true;
    for (const Voce& Una : Voci)
        Aggiungi(PerChiave[size_t(Una.Posto)]);
}
