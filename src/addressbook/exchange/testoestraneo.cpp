#include "addressbook/exchange/testoestraneo.h"

#include "addressbook/exchange/tabellaestranea.h"
#include "platform/base/paginacodice.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What files of other kinds begin with, and what they are.
struct Firma
{
    QByteArrayView Inizio;
    QStringView Frase;
};

constexpr QStringView FoglioDiCalcolo =
    u"Il file è di un foglio di calcolo: aprirlo con quel programma e salvarlo in formato CSV.";

// A spreadsheet's own file, of today and of former times.
const Firma Firme[] = {
    {QByteArrayView("PK\x03\x04", 4), FoglioDiCalcolo},
    {QByteArrayView("\xD0\xCF\x11\xE0", 4), FoglioDiCalcolo},
};

[[noreturn]] void NonETesto()
{
    RifiutaFile(u"Il file non è un testo: esportare i nominativi dal programma d'origine in formato CSV o "
                "vCard."_s);
}

/// True when too many bytes are control codes for anything that people write.
bool PienoDiControlli(QByteArrayView Byte)
{
    constexpr qsizetype UnoSu = 20;
    constexpr qsizetype Pochi = 8;  // a short file with a stray code is a text still
    const auto Controllo = [](char C) {
        return (C >= 0 && C < ' ' && C != '\t' && C != '\r' && C != '\n' && C != '\f' && C != '\x1a') ||
               C == '\x7f';
    };
    const qsizetype Quanti = std::ranges::count_if(Byte, Controllo);
    return Quanti > std::max(Pochi, Byte.size() / UnoSu);
}

QString DaUtf16(const QByteArray& Byte, bool AltoPrima)
{
    QStringDecoder Lettore(AltoPrima ? QStringDecoder::Utf16BE : QStringDecoder::Utf16LE);
    QString Testo = Lettore(Byte.sliced(2));
    if (Byte.size() % 2 != 0 || Lettore.hasError() || Testo.contains(QChar(u'\0')))
        NonETesto();
    return Testo;
}

}  // namespace

QString LeggiTestoEstraneo(const QByteArray& Byte, CodificaTesto Come, CodificaTesto* Trovata)
{
    if (Byte.isEmpty())
        RifiutaFile(u"Il file è vuoto: ripetere l'esportazione dal programma d'origine."_s);
    for (const Firma& Nota : Firme)
        if (Byte.startsWith(Nota.Inizio))
            RifiutaFile(Nota.Frase.toString());
    CodificaTesto Letta = Come;
    QString Testo;
    const bool Basso = Byte.startsWith("\xFF\xFE");
    if (Basso || Byte.startsWith("\xFE\xFF")) {
        Letta = CodificaTesto::Utf16;
        Testo = DaUtf16(Byte, !Basso);
    } else {
        const bool Marca = Byte.startsWith(MarcaUtf8);
        const QByteArray Senza = Marca ? Byte.sliced(MarcaUtf8.size()) : Byte;
        if (Senza.contains('\0') || PienoDiControlli(Senza))
            NonETesto();
        if (Come != CodificaTesto::Utf8 && Come != CodificaTesto::Windows1252)
            Letta = Senza.isValidUtf8() ? CodificaTesto::Utf8 : CodificaTesto::Windows1252;
        Testo = Letta == CodificaTesto::Utf8 ? QString::fromUtf8(Senza) : DaCp1252(Senza);
    }
    // The mark by which old systems ended a text.
    while (Testo.endsWith(u'\x1a'))
        Testo.chop(1);
    if (Trovata)
        *Trovata = Letta;
    return Testo;
}
