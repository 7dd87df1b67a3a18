#include "platform/base/regionale.h"

#include "platform/base/decimale.h"
#include "platform/base/errore.h"
#include "platform/base/segni.h"

#include <QDateTime>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// A number in plain ASCII form with a point, being put together; it begins with a zero so that it
/// always has a whole part.
class NumeroPiano
{
public:
    void Aggiungi(char Carattere) { Byte.append(Carattere); }
    void Aggiungi(QStringView Cifre)
    {
        for (const QChar Cifra : Cifre)
            Byte.append(char(Cifra.unicode()));
    }

    /// Infinite when it is too large; -0 becomes 0.
    [[nodiscard]] double Valore(bool Negativo) const
    {
        const double Assoluto = LeggiPiano(Byte.cbegin(), Byte.cend());
        return (Negativo ? -Assoluto : Assoluto) + 0.0;
    }

private:
    QVarLengthArray<char, 64> Byte{'0'};
};

/// A number read from text, or the number of the error that reading it is.
struct Lettura
{
    double Valore = 0.0;
    int Errore = 0;
};
constexpr Lettura NessunNumero{0.0, 13};
constexpr Lettura TroppoGrande{0.0, 6};

Lettura Verificata(double Valore)
{
    return std::isfinite(Valore) ? Lettura{Valore, 0} : TroppoGrande;
}

/// Takes the digits at the beginning off the text.
QStringView PrendiCifre(QStringView& Resto)
{
    const auto Fine = std::ranges::find_if_not(Resto, ECifra);
    const QStringView Cifre = Resto.first(Fine - Resto.begin());
    Resto = Resto.sliced(Cifre.size());
    return Cifre;
}

/// Takes one of these characters off the beginning; a null one when none stands there.
QChar Prendi(QStringView& Resto, QStringView Ammessi)
{
    if (Resto.isEmpty() || !Ammessi.contains(Resto.front()))
        return {};
    const QChar Preso = Resto.front();
    Resto = Resto.sliced(1);
    return Preso;
}

/// The whole part: digits alone, or one to three of them and groups of three behind points. Nothing
/// when a point stands elsewhere: "12.5" must not become 125, nor "0.500" become 500.
std::optional<qsizetype> LeggiParteIntera(QStringView& Resto, NumeroPiano& Testo)
{
    const QStringView Primo = PrendiCifre(Resto);
    Testo.Aggiungi(Primo);
    qsizetype Numero = Primo.size();
    while (!Prendi(Resto, u".").isNull()) {
        const QStringView Gruppo = PrendiCifre(Resto);
        if (Primo.isEmpty() || Primo.size() > 3 || Primo.front() == u'0' || Gruppo.size() != 3)
            return std::nullopt;
        Testo.Aggiungi(Gruppo);
        Numero += Gruppo.size();
    }
    return Numero;
}

/// Digits behind the decimal sign; returns how many.
qsizetype LeggiParteDecimale(QStringView& Resto, QStringView Segno, NumeroPiano& Testo)
{
    if (Prendi(Resto, Segno).isNull())
        return 0;
    const QStringView Cifre = PrendiCifre(Resto);
    Testo.Aggiungi('.');
    Testo.Aggiungi(Cifre.isEmpty() ? QStringView(u"0") : Cifre);
    return Cifre.size();
}

/// An exponent, if one with digits stands there; otherwise the text stays as it is.
void LeggiEsponente(QStringView& Resto, NumeroPiano& Testo)
{
    QStringView Oltre = Resto;
    if (Prendi(Oltre, u"Ee").isNull())
        return;
    const QChar Segno = Prendi(Oltre, u"+-");
    const QStringView Cifre = PrendiCifre(Oltre);
    if (Cifre.isEmpty())
        return;
    Testo.Aggiungi('e');
    Testo.Aggiungi(Segno == u'-' ? '-' : '+');
    Testo.Aggiungi(Cifre);
    Resto = Oltre;
}

Lettura LeggiNumero(QStringView Italiano)
{
    QStringView Resto = Italiano.trimmed();
    NumeroPiano Testo;
    const bool Negativo = Prendi(Resto, u"+-") == u'-';
    const std::optional<qsizetype> Intere = LeggiParteIntera(Resto, Testo);
    if (!Intere || *Intere + LeggiParteDecimale(Resto, u",", Testo) == 0)
        return NessunNumero;
    LeggiEsponente(Resto, Testo);
    return Resto.isEmpty() ? Verificata(Testo.Valore(Negativo)) : NessunNumero;
}

Lettura LeggiCella(const QVariant& Cella)
{
    if (Cella.typeId() == QMetaType::QString)
        return LeggiNumero(Cella.toString());
    if (Cella.typeId() == QMetaType::Bool)
        return {Cella.toBool() ? -1.0 : 0.0, 0};
    return ENumero(Cella) ? Verificata(Cella.toDouble()) : NessunNumero;
}

double ValoreLetto(const Lettura& Letto)
{
    if (Letto.Errore != 0)
        throw Errore(Letto.Errore);
    return Letto.Valore;
}

int InteroTra(const QString& Testo, int Minimo, int Massimo)
{
    const double Valore = Round(CDbl(Testo));
    if (Valore < Minimo || Valore > Massimo)
        throw Errore(errori::Eccedenza);
    return int(Valore);
}

}  // namespace

// ---- Roundings ----------------------------------------------------------------------------------

double Round(double Valore, int Decimali)
{
    if (!std::isfinite(Valore))
        return Valore;
    Decimale Numero = Scomponi(Valore);
    const int Tenuti = std::clamp(Decimali, 0, CifreDoppio);
    // Nothing of the text is dropped: a large whole number keeps its last binary digits.
    if (Numero.Punto + Tenuti >= CifreDoppio)
        return Valore + 0.0;
    Arrotonda(Numero, Tenuti, Pareggio::AlPari);
    return InDoppio(Numero);
}

double Arrotonda2(double Valore)
{
    if (!std::isfinite(Valore))
        return Valore;
    Decimale Numero = Scomponi(Valore);
    Arrotonda(Numero, 2, Pareggio::LontanoDaZero);
    const double Riletto = InDoppio(Numero);
    // The text of the largest doubles, cut at 15 digits, may lie beyond them.
    return std::isfinite(Riletto) ? Riletto : Valore;
}

// ---- Text to numbers ----------------------------------------------------------------------------

bool ENumero(const QVariant& Valore)
{
    switch (Valore.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

bool IsNumeric(const QString& Testo)
{
    return LeggiNumero(Testo).Errore != NessunNumero.Errore;
}

double CDbl(const QString& Testo)
{
    return ValoreLetto(LeggiNumero(Testo));
}

double CDbl(const QVariant& Valore)
{
    return ValoreLetto(LeggiCella(Valore));
}

int CInt(const QString& Testo)
{
    return InteroTra(Testo, std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max());
}

int CLng(const QString& Testo)
{
    return InteroTra(Testo, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
}

float CSng(const QString& Testo)
{
    const double Valore = CDbl(Testo);
    if (std::abs(Valore) > double(std::numeric_limits<float>::max()))
        throw Errore(errori::Eccedenza);
    return float(Valore);
}

double NumeroDi(const QString& Testo)
{
    return LeggiNumero(Testo).Valore;
}

double NumeroDi(const QVariant& Valore)
{
    return LeggiCella(Valore).Valore;
}

double Val(const QString& Testo)
{
    QString Compatto = Testo;
    Compatto.removeIf([](QChar C) { return C.isSpace(); });
    QStringView Resto = Compatto;
    NumeroPiano Piano;
    const bool Negativo = Prendi(Resto, u"+-") == u'-';
    const QStringView Intere = PrendiCifre(Resto);
    Piano.Aggiungi(Intere);
    if (Intere.size() + LeggiParteDecimale(Resto, u".", Piano) == 0)
        return 0.0;
    LeggiEsponente(Resto, Piano);
    return Verificata(Piano.Valore(Negativo)).Valore;
}

// ---- Dates --------------------------------------------------------------------------------------

std::optional<QDate> LeggiData(const QString& Testo)
{
    constexpr QStringView Separatori = u"/-.";
    constexpr int UltimoAnnoDel2000 = 29;
    QStringView Resto = QStringView(Testo).trimmed();
    const QStringView Giorno = PrendiCifre(Resto);
    const QChar Primo = Prendi(Resto, Separatori);
    const QStringView Mese = PrendiCifre(Resto);
    const QChar Secondo = Prendi(Resto, Separatori);
    const QStringView Cifre = PrendiCifre(Resto);
    if (Giorno.size() > 2 || Mese.size() > 2 || (Cifre.size() != 2 && Cifre.size() != 4) || Primo.isNull() ||
        Primo != Secondo || !Resto.isEmpty())
        return std::nullopt;
    int Anno = Cifre.toInt();
    if (Cifre.size() == 2)
        Anno += Anno <= UltimoAnnoDel2000 ? 2000 : 1900;
    const QDate Data(Anno, Mese.toInt(), Giorno.toInt());
    return Data.isValid() && Anno >= 100 ? std::optional(Data) : std::nullopt;
}

bool IsDate(const QString& Testo)
{
    return LeggiData(Testo).has_value();
}

bool IsDate(const QVariant& Valore)
{
    switch (Valore.typeId()) {
    case QMetaType::QDate:
        return Valore.toDate().isValid();
    case QMetaType::QDateTime:
        return Valore.toDateTime().isValid();
    case QMetaType::QString:
        return IsDate(Valore.toString());
    default:
        return false;
    }
}

QDate CDate(const QString& Testo)
{
    if (const std::optional<QDate> Data = LeggiData(Testo))
        return *Data;
    throw Errore(errori::Tipo);
}

QString SenzaSecolo(const QString& Testo)
{
    constexpr qsizetype AnnoDiDueCifre = 8;
    return Testo.endsWith(u"__") ? Testo.left(AnnoDiDueCifre) : Testo;
}

QString ConSecolo(const QString& Testo)
{
    const auto Data = Testo.endsWith(u"__") ? LeggiData(SenzaSecolo(Testo)) : std::nullopt;
    return Data ? Format(*Data, ModelloData) : Testo;
}

QString DataDigitata(const QString& Testo)
{
    QString Separata = Testo.trimmed();
    constexpr qsizetype ConIlSecolo = 8;
    constexpr qsizetype SenzaIlSecolo = 6;
    if (SoloCifre(Separata) && (Separata.size() == ConIlSecolo || Separata.size() == SenzaIlSecolo))
        Separata.insert(4, u'/').insert(2, u'/');
    const auto Letta = LeggiData(Separata);
    return Letta ? Format(*Letta, ModelloData) : Testo;
}
