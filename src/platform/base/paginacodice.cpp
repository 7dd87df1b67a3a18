#include "platform/base/paginacodice.h"

#include <QStringView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int PaginaUtf8 = 65001;
constexpr int PrimoAlto = 0x80;  // below it all pages are ASCII

// Characters from 0x80 on. Codes that a page leaves free stand for the control characters of the same number.
constexpr QStringView Centrale = u"€\u0081‚\u0083„…†‡\u0088‰Š‹ŚŤŽŹ\u0090‘’“”•–—\u0098™š›śťžź"
                                 u"\u00a0\u02c7\u02d8Ł¤Ą¦§¨©Ş«¬\u00ad®Ż°±\u02dbł´µ¶·¸ąş»Ľ\u02ddľż"
                                 u"ŔÁÂĂÄĹĆÇČÉĘËĚÍÎĎĐŃŇÓÔŐÖ×ŘŮÚŰÜÝŢß"
                                 u"ŕáâăäĺćçčéęëěíîďđńňóôőö÷řůúűüýţ\u02d9";
constexpr QStringView Dos = u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
                            u"áíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                            u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
                            u"αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00a0";
constexpr QStringView DosLatino = u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒ"
                                  u"áíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
                                  u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
                                  u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00ad±‗¾¶§÷¸°¨·¹³²■\u00a0";
constexpr QStringView Mac = u"ÄÅÇÉÑÖÜáàâäãåçéèêëíìîïñóòôöõúùûü"
                            u"†°¢£§•¶ß®©™´¨≠ÆØ∞±≤≥¥µ∂∑∏π∫ªºΩæø"
                            u"¿¡¬√ƒ≈∆«»…\u00a0ÀÃÕŒœ–—“”‘’÷◊ÿŸ⁄€‹›ﬁﬂ"
                            u"‡·‚„‰ÂÊÁËÈÍÎÏÌÓÔ\uf8ffÒÚÛÙı\u02c6\u02dc¯\u02d8\u02d9\u02da¸\u02dd\u02db\u02c7";
static_assert(Centrale.size() == 128 && Dos.size() == 128 && DosLatino.size() == 128 && Mac.size() == 128);

struct PaginaAlta
{
    int Numero;
    QStringView Alti;
};

constexpr std::array Pagine{
    PaginaAlta{1250, Centrale},
    PaginaAlta{437, Dos},
    PaginaAlta{850, DosLatino},
    PaginaAlta{10000, Mac},
};

constexpr unsigned char PrimoProprio = 0x80;

/// What the bytes 80 to 9F stand for; all the others are those of Latin-1.
constexpr std::array<char16_t, 32> CaratteriPropri{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(PrimoProprio + CaratteriPropri.size() == 0xA0);

char ByteDi(char16_t Carattere)
{
    if (Carattere < PrimoProprio || (Carattere >= 0xA0 && Carattere <= 0xFF))
        return static_cast<char>(Carattere);
    const auto* Trovato = std::ranges::find(CaratteriPropri, Carattere);
    return Trovato == CaratteriPropri.end()
               ? '?'
               : static_cast<char>(PrimoProprio + (Trovato - CaratteriPropri.begin()));
}

char16_t CarattereDi(char Byte)
{
    const auto Codice = static_cast<unsigned char>(Byte);
    return Codice >= PrimoProprio && Codice < 0xA0 ? CaratteriPropri.at(Codice - PrimoProprio) : Codice;
}

/// A sign of the symbol fonts by its code.
struct Segno
{
    int Codice;
    char16_t Unicode;
};

// Symbol and Wingdings give the same code different signs; these are the bullets that word processors make.
constexpr std::array Segni{
    Segno{0xA7, u'\u25AA'}, Segno{0xA8, u'\u25A1'}, Segno{0xB7, u'\u2022'}, Segno{0xD8, u'\u27A2'},
    Segno{0xE0, u'\u2192'}, Segno{0xF0, u'\u21E8'}, Segno{0xFC, u'\u2713'}, Segno{0xFE, u'\u2611'},
};
constexpr char16_t Pallino = u'\u2022';

/// Character sets of fonts whose page this file knows.
struct SetCaratteri
{
    int Set;
    int Pagina;
};

constexpr std::array TuttiISet{
    SetCaratteri{0, PaginaWindows}, SetCaratteri{2, PaginaSimboli}, SetCaratteri{77, 10000},
    SetCaratteri{238, 1250},        SetCaratteri{254, 437},         SetCaratteri{255, 850},
};

/// Characters that are no text: controls but for tab and line break, and codes that stand for none.
bool Estraneo(QChar C)
{
    const char16_t Codice = C.unicode();
    if (Codice < 0x20)
        return C != u'\t' && C != u'\n';
    return (Codice >= 0x7F && Codice < 0xA0) || Codice >= 0xFFFE || (Codice >= 0xFDD0 && Codice <= 0xFDEF);
}

}  // namespace

QByteArray Cp1252(const QString& Testo)
{
    QByteArray Risultato;
    Risultato.reserve(Testo.size());
    for (qsizetype i = 0; i < Testo.size(); ++i) {
        // A pair of surrogates is one character, hence one question mark.
        if (Testo[i].isHighSurrogate() && i + 1 < Testo.size() && Testo[i + 1].isLowSurrogate())
            ++i;
        Risultato.append(ByteDi(Testo[i].unicode()));
    }
    return Risultato;
}

QString DaCp1252(const QByteArray& Testo)
{
    QString Risultato(Testo.size(), Qt::Uninitialized);
    std::ranges::transform(Testo, Risultato.begin(), [](char Byte) { return QChar(CarattereDi(Byte)); });
    return Risultato;
}

QString DaMarca(const QByteArray& Byte)
{
    return Byte.startsWith(MarcaUtf8) ? QString::fromUtf8(Byte.sliced(MarcaUtf8.size())) : DaCp1252(Byte);
}

QString TestoDaPagina(const QByteArray& Byte, int Pagina)
{
    if (Pagina == PaginaUtf8)
        return QString::fromUtf8(Byte);
    const auto Sua = std::ranges::find(Pagine, Pagina, &PaginaAlta::Numero);
    if (Pagina != PaginaSimboli && Sua == Pagine.end())
        return DaCp1252(Byte);
    QString Testo;
    Testo.reserve(Byte.size());
    for (const char Uno : Byte) {
        const auto Codice = static_cast<unsigned char>(Uno);
        if (Pagina == PaginaSimboli)
            Testo += SegnoDiSimboli(Codice);
        else
            Testo += Codice < PrimoAlto ? QChar(char16_t(Codice)) : Sua->Alti[Codice - PrimoAlto];
    }
    return Testo;
}

QChar SegnoDiSimboli(int Codice)
{
    const auto Suo = std::ranges::find(Segni, Codice, &Segno::Codice);
    if (Suo != Segni.end())
        return Suo->Unicode;
    return Codice < PrimoAlto ? QChar(static_cast<char16_t>(Codice)) : QChar(Pallino);
}

int PaginaDelSet(int Set)
{
    const auto Suo = std::ranges::find(TuttiISet, Set, &SetCaratteri::Set);
    return Suo == TuttiISet.end() ? 0 : Suo->Pagina;
}

QString SenzaControlli(QString Testo)
{
    Testo.removeIf(Estraneo);
    // Nearly every text ends here, without a copy of it.
    if (std::none_of(Testo.cbegin(), Testo.cend(), [](QChar C) { return C.isSurrogate(); }))
        return Testo;
    for (qsizetype i = 0; i < Testo.size(); ++i) {
        if (!Testo[i].isSurrogate())
            continue;
        if (Testo[i].isHighSurrogate() && i + 1 < Testo.size() && Testo[i + 1].isLowSurrogate())
            ++i;
        else
            Testo[i] = QChar::ReplacementCharacter;
    }
    return Testo;
}
