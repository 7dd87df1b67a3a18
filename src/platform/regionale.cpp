#include "platform/regionale.h"

#include "platform/errore.h"

#include <QDateTime>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int CifreDoppio = 15;   ///< significant digits a double is trusted for
constexpr int CifreSingolo = 7;   ///< the same for single precision

// ---- The decimal text of a number ---------------------------------------------------------------

/// A number as its significant digits: 0,<Cifre> times 10 to the Punto. No trailing zeros; zero has no
/// digits and no sign.
struct Decimale
{
    bool Negativo = false;
    int Punto = 0;
    int Numero = 0;
    std::array<char, CifreDoppio> Cifre{};

    [[nodiscard]] bool Zero() const { return Numero == 0; }
    [[nodiscard]] int Intere() const { return std::max(Punto, 0); }
    [[nodiscard]] int Decimali() const { return std::max(Numero - Punto, 0); }

    /// The digit that counts 10 to the Posto: 0 are the units, -1 the tenths.
    [[nodiscard]] QChar Cifra(int Posto) const
    {
        const int Indice = Punto - 1 - Posto;
        return QLatin1Char(Indice >= 0 && Indice < Numero ? Cifre[size_t(Indice)] : '0');
    }

    void Ripulisci()
    {
        while (Numero > 0 && Cifre[size_t(Numero) - 1] == '0')
            --Numero;
        if (Zero())
            *this = Decimale();
    }
};

/// The digits of a finite number, rounded to so many. The C library is not asked: its point depends on
/// the machine's locale.
Decimale Scomponi(double Valore, int MaxCifre)
{
    std::array<char, 32> Testo{};  // d.ddddde+ddd
    const char* Fine =
        std::to_chars(Testo.begin(), Testo.end(), std::abs(Valore), std::chars_format::scientific, MaxCifre - 1)
            .ptr;
    Decimale Esito;
    Esito.Negativo = std::signbit(Valore);
    Esito.Cifre[0] = Testo[0];
    std::copy_n(Testo.begin() + 2, MaxCifre - 1, Esito.Cifre.begin() + 1);
    Esito.Numero = MaxCifre;
    const char* Esponente = Testo.begin() + MaxCifre + 2;
    std::from_chars(Esponente + (*Esponente == '+' ? 1 : 0), Fine, Esito.Punto);
    ++Esito.Punto;
    Esito.Ripulisci();
    return Esito;
}

enum class Pareggio { AlPari, LontanoDaZero };

/// Whether the digits from `Tenute` on make the one before them grow.
bool PerEccesso(const Decimale& Numero, int Tenute, Pareggio Regola)
{
    const char Prima = Numero.Cifre[size_t(Tenute)];
    if (Prima != '5' || Tenute + 1 < Numero.Numero)
        return Prima >= '5';
    const bool Dispari = Tenute > 0 && (Numero.Cifre[size_t(Tenute) - 1] - '0') % 2 == 1;
    return Regola == Pareggio::LontanoDaZero || Dispari;
}

/// Adds one to the last of the first `Tenute` digits.
void Incrementa(Decimale& Numero, int Tenute)
{
    int Indice = Tenute - 1;
    while (Indice >= 0 && Numero.Cifre[size_t(Indice)] == '9')
        Numero.Cifre[size_t(Indice--)] = '0';
    if (Indice >= 0) {
        ++Numero.Cifre[size_t(Indice)];
        return;
    }
    Numero.Cifre[0] = '1';
    Numero.Numero = 1;
    ++Numero.Punto;
}

void Arrotonda(Decimale& Numero, int Decimali, Pareggio Regola)
{
    const int Tenute = Numero.Punto + Decimali;
    if (Tenute >= Numero.Numero)
        return;
    const bool Eccesso = Tenute >= 0 && PerEccesso(Numero, Tenute, Regola);
    Numero.Numero = std::max(Tenute, 0);
    if (Eccesso)
        Incrementa(Numero, Tenute);
    Numero.Ripulisci();
}

/// A number in plain ASCII form with a point, being put together; begins with a zero so that it always
/// has a whole part.
class TestoPiano
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
        const double Assoluto = QByteArrayView(Byte.data(), Byte.size()).toDouble();
        return (Negativo ? -Assoluto : Assoluto) + 0.0;
    }

private:
    QVarLengthArray<char, 64> Byte{'0'};
};

double InDoppio(const Decimale& Numero)
{
    TestoPiano Testo;
    for (int Indice = 0; Indice < Numero.Numero; ++Indice)
        Testo.Aggiungi(Numero.Cifre[size_t(Indice)]);
    std::array<char, 16> Esponente{'e'};
    const char* Fine =
        std::to_chars(Esponente.begin() + 1, Esponente.end(), Numero.Punto - Numero.Numero).ptr;
    for (const char* Carattere = Esponente.begin(); Carattere != Fine; ++Carattere)
        Testo.Aggiungi(*Carattere);
    return Testo.Valore(Numero.Negativo);
}

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
    qsizetype Virgola = -1;   ///< where the decimal sign stands in the text
    int Interi = 0;           ///< places before it
    int InteriForzati = 0;
    int Decimali = 0;         ///< places behind it
    int DecimaliForzati = 0;
    bool Migliaia = false;

    [[nodiscard]] bool SeparaMigliaia(qsizetype I) const
    {
        return Virgola < 0 && Testo[I] == u',' && I > 0 && ESegnaposto(Testo[I - 1])
               && I + 1 < Testo.size() && ESegnaposto(Testo[I + 1]);
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
        if (!S.SeparaMigliaia(I) || I > S.Virgola)
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
            throw Errore(5);
        Parti[Numero++] = Parte;
    }
    return Parti;
}

// ---- Numbers from text --------------------------------------------------------------------------

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

bool ECifra(QChar C)
{
    return C >= u'0' && C <= u'9';
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
std::optional<qsizetype> LeggiParteIntera(QStringView& Resto, TestoPiano& Testo)
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
qsizetype LeggiParteDecimale(QStringView& Resto, QStringView Segno, TestoPiano& Testo)
{
    if (Prendi(Resto, Segno).isNull())
        return 0;
    const QStringView Cifre = PrendiCifre(Resto);
    Testo.Aggiungi('.');
    Testo.Aggiungi(Cifre.isEmpty() ? QStringView(u"0") : Cifre);
    return Cifre.size();
}

/// An exponent, if one with digits stands there; otherwise the text stays as it is.
void LeggiEsponente(QStringView& Resto, TestoPiano& Testo)
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
    TestoPiano Testo;
    const bool Negativo = Prendi(Resto, u"+-") == u'-';
    const std::optional<qsizetype> Intere = LeggiParteIntera(Resto, Testo);
    if (!Intere || *Intere + LeggiParteDecimale(Resto, u",", Testo) == 0)
        return NessunNumero;
    LeggiEsponente(Resto, Testo);
    return Resto.isEmpty() ? Verificata(Testo.Valore(Negativo)) : NessunNumero;
}

Lettura LeggiCella(const QVariant& Cella)
{
    switch (Cella.typeId()) {
    case QMetaType::QString: return LeggiNumero(Cella.toString());
    case QMetaType::Bool: return {Cella.toBool() ? -1.0 : 0.0, 0};
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: return Verificata(Cella.toDouble());
    default: return NessunNumero;
    }
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
        throw Errore(6);
    return int(Valore);
}

}  // namespace

// ---- Roundings ----------------------------------------------------------------------------------

double Round(double Valore, int Decimali)
{
    if (!std::isfinite(Valore))
        return Valore;
    Decimale Numero = Scomponi(Valore, CifreDoppio);
    const int Tenuti = std::clamp(Decimali, 0, CifreDoppio);
    // Nothing of the text is dropped: a large whole number keeps its last binary digits.
    if (Numero.Punto + Tenuti >= CifreDoppio)
        return Valore;
    Arrotonda(Numero, Tenuti, Pareggio::AlPari);
    return InDoppio(Numero);
}

double Arrotonda2(double Valore)
{
    if (!std::isfinite(Valore))
        return Valore;
    Decimale Numero = Scomponi(Valore, CifreDoppio);
    Arrotonda(Numero, 2, Pareggio::LontanoDaZero);
    const double Riletto = InDoppio(Numero);
    // The text of the largest doubles, cut at 15 digits, may lie beyond them.
    return std::isfinite(Riletto) ? Riletto : Valore;
}

// ---- Numbers to text ----------------------------------------------------------------------------

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
        throw Errore(5);
    const auto [Positiva, Negativa, Nulla] = SpezzaModello(Modello);
    Decimale Numero = Scomponi(Valore, CifreDoppio);
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
    case QMetaType::Double: return CStr(Valore.toDouble());
    case QMetaType::Float: return CStr(Valore.toFloat());
    case QMetaType::Bool: return Valore.toBool() ? u"Vero"_s : u"Falso"_s;
    case QMetaType::QDate: return Format(Valore.toDate(), u"dd/mm/yyyy");
    case QMetaType::QDateTime: return Format(Valore.toDateTime().date(), u"dd/mm/yyyy");
    default: return Valore.toString();
    }
}

QString Str(double Valore)
{
    if (!std::isfinite(Valore))
        return QString::number(Valore);
    const Decimale Numero = Scomponi(Valore, CifreDoppio);
    return (Numero.Negativo ? u'-' : u' ') + TestoSemplice(Numero, CifreDoppio, u'.', false);
}

// ---- Text to numbers ----------------------------------------------------------------------------

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
        throw Errore(6);
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
    TestoPiano Piano;
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
    if (Giorno.size() > 2 || Mese.size() > 2 || (Cifre.size() != 2 && Cifre.size() != 4) || Primo.isNull()
        || Primo != Secondo || !Resto.isEmpty())
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
    case QMetaType::QDate: return Valore.toDate().isValid();
    case QMetaType::QDateTime: return Valore.toDateTime().isValid();
    case QMetaType::QString: return IsDate(Valore.toString());
    default: return false;
    }
}

QDate CDate(const QString& Testo)
{
    if (const std::optional<QDate> Data = LeggiData(Testo))
        return *Data;
    throw Errore(13);
}
