#include "print/modLettere.h"

#include "platform/base/regionale.h"

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QLatin1StringView, 10> Unita{
    ""_L1,       "uno"_L1, "due"_L1,   "tre"_L1,  "quattro"_L1,
    "cinque"_L1, "sei"_L1, "sette"_L1, "otto"_L1, "nove"_L1,
};
/// From ten to nineteen, by the unit that follows the ten plus 1.
constexpr std::array<QLatin1StringView, 11> Decine1{
    ""_L1,         "dieci"_L1,  "undici"_L1,     "dodici"_L1,   "tredici"_L1,    "quattordici"_L1,
    "quindici"_L1, "sedici"_L1, "diciasette"_L1, "diciotto"_L1, "diciannove"_L1,
};
constexpr std::array<QLatin1StringView, 10> Decine{
    ""_L1,          ""_L1,         "venti"_L1,    "trenta"_L1,  "quaranta"_L1,
    "cinquanta"_L1, "sessanta"_L1, "settanta"_L1, "ottanta"_L1, "novanta"_L1,
};

/// How a group of three digits goes on.
struct Scala
{
    QLatin1StringView Plurale;
    QLatin1StringView Singolare;  ///< the whole group when it is "uno"
};
constexpr std::array<Scala, 4> Scale{{
    {"miliardi"_L1, "unmiliardo"_L1},
    {"milioni"_L1, "unmilione"_L1},
    {"mila"_L1, "mille"_L1},
    {""_L1, "uno"_L1},
}};
constexpr qsizetype CifreGruppo = 3;

/// What two words leave out where they meet, in the order of the house; there are no others.
struct Elisione
{
    QLatin1StringView Cercato;
    QLatin1StringView Nuovo;
};
constexpr std::array<Elisione, 4> Elisioni{{
    {"tao"_L1, "to"_L1},
    {"oo"_L1, "o"_L1},
    {"iu"_L1, "u"_L1},
    {"tau"_L1, "tu"_L1},
}};

std::size_t Cifra(QChar C)
{
    return static_cast<std::size_t>(C.digitValue());
}

/// Words of three digits; empty for "000".
QString Centinaia(QStringView Cifre)
{
    const std::size_t H = Cifra(Cifre[0]);
    const std::size_t T = Cifra(Cifre[1]);
    const std::size_t U = Cifra(Cifre[2]);
    QString Parole;
    if (H > 0)
        Parole += (H == 1 ? ""_L1 : Unita[H]) + "cento"_L1;
    if (T == 1)
        return Parole + Decine1[U + 1];
    return Parole + Decine[T] + Unita[U];
}

QString Intero(double ParteIntera)
{
    const QString Cifre = Format(ParteIntera, u"000000000000");
    QString Parole;
    for (std::size_t Quale = 0; Quale < Scale.size(); ++Quale) {
        const QString Gruppo =
            Centinaia(QStringView(Cifre).sliced(static_cast<qsizetype>(Quale) * CifreGruppo, CifreGruppo));
        if (!Gruppo.isEmpty())
            Parole += Gruppo == Unita[1] ? QString(Scale[Quale].Singolare) : Gruppo + Scale[Quale].Plurale;
    }
    for (const Elisione& Una : Elisioni)
        Parole = SostituisciTesto(Parole, Una.Cercato, Una.Nuovo);
    return Parole;
}

/// The first two decimals of an amount not below 0, cut and not rounded.
QString Centesimi(double Valore)
{
    const QString Testo = Str(Valore);
    // An exponent stands for an amount without decimals or for one whose first two are 0.
    const int Punto = Testo.contains(u'E') ? 0 : UltimaPos(Testo, u"."_s);
    const QString Decimali = Punto > 0 ? Testo.sliced(Punto) : QString();
    return (Decimali + "00"_L1).first(2);
}

}  // namespace

QString NumeroInLettere(double Valore)
{
    const double Assoluto = std::fabs(Valore);
    const QString Lettere = Intero(std::floor(Assoluto)) + u'/' + Centesimi(Assoluto);
    return Valore < 0.0 ? "meno"_L1 + Lettere : Lettere;
}

QString NumeroInLettere(const QVariant& Valore)
{
    return NumeroInLettere(CDbl(Valore));
}

int UltimaPos(const QString& Testo, const QString& Cercato)
{
    return static_cast<int>(Testo.lastIndexOf(Cercato)) + 1;
}

QString SostituisciTesto(const QString& Testo, const QString& Cercato, const QString& Nuovo)
{
    if (Cercato.isEmpty())
        return Testo;
    QString Fatto = Testo;
    if (Nuovo.contains(Cercato))
        return Fatto.replace(Cercato, Nuovo);
    for (qsizetype Posto = Fatto.indexOf(Cercato); Posto >= 0; Posto = Fatto.indexOf(Cercato))
        Fatto.replace(Posto, Cercato.size(), Nuovo);
    return Fatto;
}
