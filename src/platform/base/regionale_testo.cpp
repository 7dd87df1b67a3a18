// Numbers and dates as text.
#include "platform/base/decimale.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <QDateTime>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// ---- Plain text ---------------------------------------------------------------------------------

QString ConEsponente(const Decimale& Numero, QChar Virgola)
{
    const int Esponente = Numero.Punto - 1;
    QString Testo(Numero.Cifra(Esponente));
    if (Numero.Numero > 1)
        Testo += Virgola;
    for (int Indice = 1; Indice < Numero.Numero; ++Indice)
        Testo += Numero.Cifra(Esponente - Indice);
    Testo += Esponente < 0 ? "E-"_L1 : "E+"_L1;
    return Testo + QString::number(std::abs(Esponente)).rightJustified(2, u'0');
}

/// At most `MaxCifre` digits, no sign; `ZeroDavanti` writes the lone zero of "0,5".
QString TestoSemplice(const Decimale& Numero, int MaxCifre, QChar Virgola, bool ZeroDavanti)
{
    constexpr int PuntoMinimo = -3;  // 0,0001
    if (Numero.Zero())
        return u"0"_s;
    if (Numero.Punto > MaxCifre || Numero.Punto < PuntoMinimo)
        return ConEsponente(Numero, Virgola);
    QString Testo;
    for (int Posto = Numero.Intere() - 1; Posto >= 0; --Posto)
        Testo += Numero.Cifra(Posto);
    if (Testo.isEmpty() && ZeroDavanti)
        Testo += u'0';
    if (Numero.Decimali() > 0)
        Testo += Virgola;
    for (int Decimale = 1; Decimale <= Numero.Decimali(); ++Decimale)
        Testo += Numero.Cifra(-Decimale);
    return Testo;
}

QString TestoItaliano(double Valore, int MaxCifre)
{
    if (!std::isfinite(Valore))
        return QString::number(Valore);
    const Decimale Numero = Scomponi(Valore, MaxCifre);
    const QString Testo = TestoSemplice(Numero, MaxCifre, u',', true);
    return Numero.Negativo ? u'-' + Testo : Testo;
}

// ---- Patterns -----------------------------------------------------------------------------------

bool ESegnaposto(QChar C)
{
    return C == u'0' || C == u'#';
}

/// One section of a pattern: its text and what its places ask for.
struct Sezione
{
    QStringView Testo;
    qsizetype Virgola = -1;  ///< where the decimal sign stands in the text
    int Interi = 0;          ///< places before it
    int InteriForzati = 0;
    int Decimali = 0;  ///< places behind it
    int DecimaliForzati = 0;
    bool Migliaia = false;

    /// A "," between two places groups thousands instead of standing for itself.
    [[nodiscard]] bool SeparaMigliaia(qsizetype I) const
    {
        return Testo[I] == u',' && I > 0 && ESegnaposto(Testo[I - 1]) && I + 1 < Testo.size() &&
               ESegnaposto(Testo[I + 1]);
    }
};

Sezione LeggiSezione(QStringView Testo)
{
    Sezione Letta;
    Letta.Testo = Testo;
    for (qsizetype I = 0; I < Testo.size(); ++I) {
        const QChar C = Testo[I];
        if (C == u'.' && Letta.Virgola < 0) {
            Letta.Virgola = I;
        } else if (!ESegnaposto(C)) {
            Letta.Migliaia = Letta.Migliaia || Letta.SeparaMigliaia(I);
        } else if (Letta.Virgola < 0) {
            ++Letta.Interi;
            // Behind a forced place every other is forced too: "#0#" has two digits at least.
            if (C == u'0' || Letta.InteriForzati > 0)
                ++Letta.InteriForzati;
        } else {
            ++Letta.Decimali;
            if (C == u'0')
                Letta.DecimaliForzati = Letta.Decimali;
        }
    }
    return Letta;
}

/// Writes a number, rounded to the places of the section, into its text.
class ScrittoreSezione
{
public:
    ScrittoreSezione(const Sezione& Modello, const Decimale& Valore) : S(Modello), Numero(Valore) {}

    [[nodiscard]] QString Scrivi(bool ConMeno)
    {
        if (ConMeno)
            Testo += u'-';
        for (qsizetype I = 0; I < S.Testo.size(); ++I) {
            if (I == S.Virgola)
                ScriviVirgola();
            else if (!ESegnaposto(S.Testo[I]))
                ScriviLettera(I);
            else if (S.Virgola < 0 || I < S.Virgola)
                ScriviIntero();
            else
                ScriviDecimale();
        }
        return Testo;
    }

private:
    void ScriviLettera(qsizetype I)
    {
        if (!S.SeparaMigliaia(I))
            Testo += S.Testo[I];
    }

    void ScriviVirgola()
    {
        if (S.Interi == 0)
            Intere(Alte - 1, 0);
        Testo += u',';
    }

    /// One place of the whole part; the first takes every digit beyond the places too.
    void ScriviIntero()
    {
        const int Posto = S.Interi - ++InteriFatti;
        Intere(InteriFatti == 1 ? Alte - 1 : std::min(Posto, Alte - 1), Posto);
    }

    void ScriviDecimale()
    {
        if (++DecimaliFatti <= std::max(S.DecimaliForzati, Numero.Decimali()))
            Testo += Numero.Cifra(-DecimaliFatti);
    }

    void Intere(int Da, int A)
    {
        for (int Posto = Da; Posto >= A; --Posto) {
            Testo += Numero.Cifra(Posto);
            if (S.Migliaia && Posto > 0 && Posto % 3 == 0)
                Testo += u'.';
        }
    }

    const Sezione& S;
    const Decimale& Numero;
    const int Alte = std::max(Numero.Intere(), S.InteriForzati);  ///< digits before the decimal sign
    int InteriFatti = 0;
    int DecimaliFatti = 0;
    QString Testo;
};

using Sezioni = std::array<QStringView, 3>;

/// Positive, negative and zero; one left out is null or empty. @throws Errore 5 more than three
Sezioni SpezzaModello(QStringView Modello)
{
    Sezioni Parti;
    size_t Numero = 0;
    for (const QStringView Parte : Modello.tokenize(u';')) {
        if (Numero == Parti.size())
            throw Errore(errori::Argomento);
        Parti[Numero++] = Parte;
    }
    return Parti;
}

}  // namespace

QString FormatNum(double Valore)
{
    return Format(Valore, u"0.00");
}

QString FormatNum(const QVariant& Valore)
{
    return FormatNum(NumeroDi(Valore));
}

QString Format(double Valore, QStringView Modello)
{
    if (!std::isfinite(Valore))
        throw Errore(errori::Argomento);
    const auto [Positiva, Negativa, Nulla] = SpezzaModello(Modello);
    Decimale Numero = Scomponi(Valore);
    const bool UsaNegativa = Numero.Negativo && !Negativa.isEmpty();
    Sezione Scelta = LeggiSezione(UsaNegativa ? Negativa : Positiva);
    Arrotonda(Numero, Scelta.Decimali, Pareggio::LontanoDaZero);
    if (Numero.Zero())
        Scelta = LeggiSezione(Nulla.isEmpty() ? Positiva : Nulla);
    return ScrittoreSezione(Scelta, Numero).Scrivi(Numero.Negativo && !UsaNegativa);
}

QString Format(const QDate& Data, QStringView Modello)
{
    if (!Data.isValid())
        return {};
    const auto Cifre = [](int Numero, int Quante) {
        return QString::number(Numero).rightJustified(Quante, u'0');
    };
    QString Testo;
    while (!Modello.isEmpty()) {
        qsizetype Lette = 2;
        if (Modello.startsWith(u"dd")) {
            Testo += Cifre(Data.day(), 2);
        } else if (Modello.startsWith(u"mm")) {
            Testo += Cifre(Data.month(), 2);
        } else if (Modello.startsWith(u"yyyy")) {
            Testo += Cifre(Data.year(), 4);
            Lette = 4;
        } else if (Modello.startsWith(u"yy")) {
            Testo += Cifre(Data.year() % 100, 2);
        } else {
            Testo += Modello.front();
            Lette = 1;
        }
        Modello = Modello.sliced(Lette);
    }
    return Testo;
}

QString CStr(double Valore)
{
    return TestoItaliano(Valore, CifreDoppio);
}

QString CStr(float Valore)
{
    return TestoItaliano(double(Valore), CifreSingolo);
}

QString CStr(int Valore)
{
    return QString::number(Valore);
}

QString CStr(const QVariant& Valore)
{
    switch (Valore.typeId()) {
    case QMetaType::Double:
        return CStr(Valore.toDouble());
    case QMetaType::Float:
        return CStr(Valore.toFloat());
    case QMetaType::Bool:
        return Valore.toBool() ? u"Vero"_s : u"Falso"_s;
    case QMetaType::QDate:
        return Format(Valore.toDate(), ModelloData);
    case QMetaType::QDateTime:
        return Format(Valore.toDateTime().date(), ModelloData);
    default:
        return Valore.toString();
    }
}

QString Str(double Valore)
{
    if (!std::isfinite(Valore))
        return QString::number(Valore);
    const Decimale Numero = Scomponi(Valore);
    return (Numero.Negativo ? u'-' : u' ') + TestoSemplice(Numero, CifreDoppio, u'.', false);
}
