#include "core/modControlli.h"

#include "platform/base/segni.h"

#include <algorithm>
#include <array>

namespace {

constexpr QStringView Vocali = u"AEIOU";
constexpr QStringView Consonanti = u"BCDFGHJKLMNPQRSTVWXYZ";
constexpr int LettereParte = 3;

struct Lettere
{
    QString Vocali;
    QString Consonanti;
};

/// Sorts the letters of a text; `Massimo` consonants end the walk.
Lettere Dividi(const QString& Testo, qsizetype Massimo)
{
    Lettere Divise;
    for (const QChar C : Testo) {
        // Letters of the alphabet only: Unicode would turn a dotless or a long letter into a plain one.
        const QChar Maiuscola = C >= u'a' && C <= u'z' ? C.toUpper() : C;
        if (Vocali.contains(Maiuscola))
            Divise.Vocali += Maiuscola;
        else if (Consonanti.contains(Maiuscola))
            Divise.Consonanti += Maiuscola;
        if (Divise.Consonanti.size() == Massimo)
            break;
    }
    return Divise;
}

QString Compatto(const QString& Testo)
{
    QString Codice = Testo.toUpper();
    Codice.removeIf([](QChar C) { return C.isSpace(); });
    return Codice;
}

/// Digit or Latin letter as a number: 0 to 9, then 10 for "A" and on; -1 for anything else.
int Valore(QChar C)
{
    constexpr int PrimaLettera = 10;
    if (ECifra(C))
        return C.unicode() - u'0';
    return C >= u'A' && C <= u'Z' ? C.unicode() - u'A' + PrimaLettera : -1;
}

/// What a character at an odd place counts, D.M. 23 December 1976: digits as the first ten letters.
constexpr std::array Dispari{1,  0,  5, 7, 9, 13, 15, 17, 19, 21, 2,  4,  18,
                             20, 11, 3, 6, 8, 12, 14, 16, 10, 22, 25, 24, 23};

/// A character in no table: its place -1, masked with 32766, halved.
constexpr int ValoreIgnoto = (-1 & 32766) / 2;
static_assert(ValoreIgnoto == 16383);

constexpr QChar Chiocciola = u'@';

}  // namespace

QString CodiceInUnPezzo(const QString& Testo)
{
    QString Codice = Compatto(Testo);
    Codice.removeIf([](QChar C) { return C == u'.' || C == u'-'; });
    return Codice;
}

bool PostaTorna(const QString& Testo)
{
    const QString Nudo = Testo.trimmed();
    const qsizetype Segno = Nudo.indexOf(Chiocciola);
    return Segno > 0 && Nudo.lastIndexOf(Chiocciola) == Segno && Segno + 1 < Nudo.size() &&
           std::ranges::none_of(Nudo, [](QChar C) { return C.isSpace(); });
}

QChar ControlloCodFis(const QString& Codice)
{
    constexpr qsizetype PostiControllati = 15;
    constexpr int Lettere = 26;
    constexpr int Cifre = 10;
    int Somma = 0;
    for (qsizetype i = 0; i < std::min(Codice.size(), PostiControllati); ++i) {
        const int Numero = Valore(Codice[i]);
        const int Posto = Numero < Cifre ? Numero : Numero - Cifre;
        if (Numero < 0)
            Somma += ValoreIgnoto;
        else
            Somma += i % 2 == 0 ? Dispari[size_t(Posto)] : Posto;  // the first place is an odd one
    }
    return QChar(u'A' + Somma % Lettere);
}

bool CodiceFiscaleTorna(const QString& Testo)
{
    const QString Codice = Compatto(Testo);
    if (Codice.size() != LettereCodFis)
        return PartitaIvaTorna(Codice);
    const bool Noto = std::ranges::all_of(Codice, [](QChar C) { return Valore(C) >= 0; });
    return Noto && Codice.back() == ControlloCodFis(Codice);
}

bool PartitaIvaTorna(const QString& Testo)
{
    QString Codice = Compatto(Testo);
    if (Codice.startsWith(u"IT"))
        Codice.remove(0, 2);
    if (Codice.size() != CifrePartitaIva)
        return false;
    int Somma = 0;
    for (qsizetype i = 0; i < CifrePartitaIva; ++i) {
        const int Cifra = Valore(Codice[i]);
        if (Cifra < 0 || Cifra > 9)
            return false;
        const int Doppia = Cifra * 2;
        Somma += i % 2 == 0 ? Cifra : Doppia > 9 ? Doppia - 9 : Doppia;
    }
    return Somma % 10 == 0;
}

bool IbanTorna(const QString& Testo)
{
    constexpr qsizetype Minima = 15;
    constexpr qsizetype Massima = 34;
    constexpr int Modulo = 97;
    const QString Codice = Compatto(Testo);
    if (Codice.size() < Minima || Codice.size() > Massima)
        return false;
    // Country and check digits go to the end; letters are two digits each.
    int Resto = 0;
    for (const QChar C : Codice.sliced(4) + Codice.first(4)) {
        const int Numero = Valore(C);
        if (Numero < 0)
            return false;
        Resto = (Resto * (Numero < 10 ? 10 : 100) + Numero) % Modulo;
    }
    return Resto == 1;
}

QString SiglaCognome(const QString& Cognome)
{
    const Lettere Divise = Dividi(Cognome, LettereParte);
    return (Divise.Consonanti + Divise.Vocali).left(LettereParte).leftJustified(LettereParte, u'X');
}

QString SiglaNome(const QString& Nome)
{
    const Lettere Divise = Dividi(Nome, Nome.size() + 1);
    const QString& C = Divise.Consonanti;
    // Four or more: the second one is passed over.
    if (C.size() > LettereParte)
        return QString(C[0]) + C[2] + C[3];
    return (C + Divise.Vocali).left(LettereParte).leftJustified(LettereParte, u'X');
}
