#include "calculators/modCodFis.h"

#include <QStringView>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Vocali = u"AEIOU";
constexpr QStringView Consonanti = u"BCDFGHJKLMNPQRSTVWXYZ";
constexpr QStringView Mesi = u"ABCDEHLMPRST";
constexpr QStringView PostiDispari = u"B1A0KKPPLLC2QQD3RRE4VVOOSSF5TTG6UUH7MMI8NNJ9WWZZYYXX";
constexpr QStringView PostiPari = u"A0B1C2D3E4F5G6H7I8J9KKLLMMNNOOPPQQRRSSTTUUVVWWXXYYZZ";
constexpr QStringView Controllo = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
static_assert(PostiDispari.size() == 2 * Controllo.size() && PostiPari.size() == PostiDispari.size());

constexpr int LettereParte = 3;
constexpr int PostiControllati = 15;
constexpr int GiornoDonne = 40;
/// A character in no table: its place -1, masked with 32766, halved.
constexpr int ValoreIgnoto = (-1 & 32766) / 2;
static_assert(ValoreIgnoto == 16383);

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

QString ParteCognome(const QString& Cognome)
{
    const Lettere Divise = Dividi(Cognome, LettereParte);
    return (Divise.Consonanti + Divise.Vocali).left(LettereParte).leftJustified(LettereParte, u'X');
}

QString ParteNome(const QString& Nome)
{
    const Lettere Divise = Dividi(Nome, Nome.size() + 1);
    const QString& C = Divise.Consonanti;
    // Four or more: the second one is passed over.
    if (C.size() > LettereParte)
        return QString(C[0]) + C[2] + C[3];
    return (C + Divise.Vocali).left(LettereParte).leftJustified(LettereParte, u'X');
}

int ValoreCarattere(QChar Carattere, bool Dispari)
{
    const qsizetype Posto = (Dispari ? PostiDispari : PostiPari).indexOf(Carattere);
    return Posto < 0 ? ValoreIgnoto : int(Posto) / 2;
}

QChar CarattereControllo(const QString& Codice)
{
    int Somma = 0;
    for (qsizetype i = 0; i < std::min<qsizetype>(Codice.size(), PostiControllati); ++i)
        Somma += ValoreCarattere(Codice[i], i % 2 == 0);  // the first place is an odd one
    return Controllo[Somma % Controllo.size()];
}

QString DueCifre(int Numero)
{
    return u"%1"_s.arg(Numero, 2, 10, QChar(u'0'));
}

}  // namespace

QString CalcoloCodFis(const QString& Cognome, const QString& Nome, const QDate& DataNascita,
                      const QString& Sesso, const QString& CodiceComune)
{
    const bool Donna = Sesso.compare(u"F", Qt::CaseInsensitive) == 0;
    const QString Codice = ParteCognome(Cognome) + ParteNome(Nome) + DueCifre(DataNascita.year() % 100) +
                           Mesi[DataNascita.month() - 1] +
                           DueCifre(DataNascita.day() + (Donna ? GiornoDonne : 0)) + CodiceComune;
    return Codice + CarattereControllo(Codice);
}
