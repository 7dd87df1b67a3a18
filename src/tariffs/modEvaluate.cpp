#include "tariffs/modEvaluate.h"

#include "platform/base/errore.h"
#include "platform/base/regionale.h"
#include "platform/base/segni.h"
#include "platform/system/messaggi.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int NessunErrore = 0;
constexpr int ErroreValutazione = 18;
constexpr int PostiPila = 200;

// The constants of the language have the digits that a formula would be written with.
constexpr double PiGreco = 3.14159265358979;
constexpr double Nepero = 2.71828182845905;

// ---- rules ------------------------------------------------------------------------------------------

using Prova = bool (*)(double L, double R);
using Formula = double (*)(double L, double R);

bool Mai(double, double)
{
    return false;
}

double Arcoseno(double, double R)
{
    if (std::fabs(R) == 1.0)
        return std::copysign(std::numbers::pi / 2.0, R);
    return std::atan(R / std::sqrt(1.0 - R * R));
}

double Arcocoseno(double, double R)
{
    if (R == 0.0)
        return std::numbers::pi / 2.0;
    if (R == -1.0)
        return std::numbers::pi;
    const double Angolo = std::atan(std::sqrt(1.0 - R * R) / R);
    return R < 0.0 ? Angolo + std::numbers::pi : Angolo;
}

bool PotenzaVietata(double L, double R)
{
    return (L < 0.0 && R != std::floor(R)) || (L == 0.0 && R == 0.0);
}

bool OltreUno(double, double R)
{
    return R < -1.0 || R > 1.0;
}

/// What a token computes from the number on top (R) and the one below it (L).
struct Regola
{
    QLatin1StringView Nome;
    Formula Valore;
    int Errore = NessunErrore;  ///< code when Vietata
    Prova Vietata = Mai;
};

constexpr std::array Regole{
    Regola{"+"_L1, [](double L, double R) { return R + L; }},
    Regola{"-"_L1, [](double L, double R) { return L - R; }},
    Regola{"*"_L1, [](double L, double R) { return R * L; }},
    Regola{"/"_L1, [](double L, double R) { return L / R; }, 7, [](double, double R) { return R == 0.0; }},
    Regola{"~"_L1, [](double, double R) { return -R; }},
    Regola{"^"_L1, [](double L, double R) { return std::pow(L, R); }, 1, PotenzaVietata},
    Regola{"@"_L1, [](double L, double R) { return R == 1.0 ? std::log(L) : std::log(L) / std::log(R); }, 2,
           [](double L, double R) { return R != 1.0 && (L <= 0.0 || R <= 0.0); }},
    Regola{"sin"_L1, [](double, double R) { return std::sin(R); }},
    Regola{"cos"_L1, [](double, double R) { return std::cos(R); }},
    Regola{"tan"_L1, [](double, double R) { return std::tan(R); }, 3,
           [](double, double R) { return std::cos(R) == 0.0; }},
    Regola{"asin"_L1, Arcoseno, 5, OltreUno},
    Regola{"acos"_L1, Arcocoseno, 6, OltreUno},
    Regola{"atan"_L1, [](double, double R) { return std::atan(R); }},
    Regola{"sinh"_L1, [](double, double R) { return (std::exp(R) - std::exp(-R)) * 0.5; }},
    Regola{"cosh"_L1, [](double, double R) { return (std::exp(R) + std::exp(-R)) * 0.5; }},
    Regola{"tanh"_L1,
           [](double, double R) { return (std::exp(R) - std::exp(-R)) / (std::exp(R) + std::exp(-R)); }},
    Regola{"ln"_L1, [](double, double R) { return std::log(R); }, 2,
           [](double, double R) { return R <= 0.0; }},
    Regola{"exp"_L1, [](double, double R) { return std::exp(R); }},
    Regola{"abs"_L1, [](double, double R) { return std::fabs(R); }},
    Regola{"sqrt"_L1, [](double, double R) { return std::sqrt(R); }, 4,
           [](double, double R) { return R < 0.0; }},
    Regola{"int"_L1, [](double, double R) { return std::floor(R); }},
    Regola{"frac"_L1, [](double, double R) { return R - std::floor(R); }},
};

// ---- tokens -----------------------------------------------------------------------------------------

/// The text as it is read: in lower case, character by character, with the ")" that ends it.
QString TestoDaLeggere(const QString& Testo)
{
    QString Letto(Testo.size() + 1, u')');
    std::transform(Testo.begin(), Testo.end(), Letto.begin(), [](QChar C) { return C.toLower(); });
    return Letto;
}

bool Lettera(QChar C)
{
    return C >= u'a' && C <= u'z';
}

bool CarattereNumerico(QChar C)
{
    return ECifra(C) || C == u',' || C == u'.';
}

bool Parentesi(QChar C)
{
    return C == u'(' || C == u')';
}

bool Uguale(QStringView Token, QLatin1StringView Nome)
{
    return std::equal(Token.begin(), Token.end(), Nome.begin(), Nome.end(),
                      [](QChar C, char N) { return C == QLatin1Char(N); });
}

bool Uniti(QChar C, QChar N)
{
    if (Parentesi(C) || Parentesi(N))
        return false;
    return C == N || (Lettera(C) && Lettera(N)) || (CarattereNumerico(C) && CarattereNumerico(N));
}

/// The token from `Pos` on, after blanks. Places count from 1, `Fine` is the last character's.
void GetToken(QStringView Testo, qsizetype Pos, qsizetype& Inizio, qsizetype& Fine)
{
    Inizio = Pos;
    while (Inizio < Testo.size() && Testo[Inizio - 1] == u' ')
        ++Inizio;
    Fine = Inizio;
    while (Fine < Testo.size() && Uniti(Testo[Fine - 1], Testo[Fine]))
        ++Fine;
}

/// A lone sign of the decimals counts too, as 0.
bool IsNumero(QStringView Token)
{
    if (Token.size() == 1)
        return CarattereNumerico(Token[0]);
    return !Token.isEmpty() && std::all_of(Token.begin(), Token.end(), CarattereNumerico) &&
           std::any_of(Token.begin(), Token.end(), [](QChar C) { return C != u',' && C != u'.'; });
}

/// Reads as far as the text is a number: "1.000,5" is 1, since the comma is a second point.
double ValoreNumero(QStringView Token)
{
    return Val(Token.toString().replace(u',', u'.'));
}

int Priorita(QStringView Token)
{
    const QChar Primo = Token[0];
    if (Primo == u'+' || Primo == u'-')
        return 1;
    if (Primo == u'*' || Primo == u'/')
        return 2;
    if (Primo == u'^' || Primo == u'@')
        return 3;
    return Lettera(Primo) ? 4 : 0;
}

/// A token that waits on the operator stack.
struct Operatore
{
    const Regola* Sua;  ///< none for a parenthesis and for an unknown token
    int Priorita;
    bool Aperta;      ///< "("
    bool UnOperando;  ///< leaves the height of the number stack alone
};

Operatore OperatoreDi(QStringView Token)
{
    const auto* Trovata = std::find_if(Regole.begin(), Regole.end(),
                                       [Token](const Regola& Una) { return Uguale(Token, Una.Nome); });
    // Words from "y" on are taken for operators between two numbers.
    const QChar Primo = Token[0];
    return {Trovata != Regole.end() ? Trovata : nullptr, Priorita(Token), Uguale(Token, "("_L1),
            (Primo >= u'a' && Primo <= u'x') || Primo == u'~'};
}

// ---- evaluation -------------------------------------------------------------------------------------

/// One evaluation: two stacks used from place 1.
///
/// Place 0 of the numbers is where a missing operand is read from and where an operation with one operand
/// too few leaves its result, so that a malformed text gives a number.
class Calcolo
{
public:
    explicit Calcolo(double ValoreX) : x(ValoreX) {}

    /// @param Testo ends with the ")" that closes the first "("
    void Esegui(QStringView Testo);
    [[nodiscard]] double Risultato() const { return Numeri[1]; }
    [[nodiscard]] int Errore() const { return Codice; }

private:
    void Leggi(QStringView Corrente, QStringView Precedente);
    void LeggiOperatore(QStringView Corrente, QStringView Precedente);
    void Applica(const Operatore& Primo);
    void Impila(double Numero);
    void Impila(const Operatore& Nuovo);
    [[nodiscard]] std::optional<double> ValoreCostante(QStringView Token) const;
    [[nodiscard]] const Operatore& Cima() const
    {
        return Operatori[static_cast<std::size_t>(AltezzaOperatori)];
    }

    double x;
    int Codice = NessunErrore;
    std::array<Operatore, PostiPila + 1> Operatori;  // written before it is read, as its height says
    std::array<double, PostiPila + 1> Numeri{};
    int AltezzaOperatori = 0;
    int AltezzaNumeri = 0;
    double L = 0.0;       ///< stays when an operation finds fewer than two numbers
    double Ultimo = 0.0;  ///< result of the last operation, which an unknown token repeats
};

void Calcolo::Esegui(QStringView Testo)
{
    QStringView Corrente = u"(";
    Impila(OperatoreDi(Corrente));
    qsizetype Pos = 1;
    while (Codice == NessunErrore && Pos <= Testo.size() && AltezzaOperatori > 0) {
        const QStringView Precedente = Corrente;
        qsizetype Inizio = 0;
        qsizetype Fine = 0;
        GetToken(Testo, Pos, Inizio, Fine);
        Corrente = Testo.sliced(Inizio - 1, Fine - Inizio + 1);
        Pos = Fine + 1;
        Leggi(Corrente, Precedente);
    }
    if (Codice == NessunErrore && !std::isfinite(Risultato()))
        Codice = ErroreValutazione;
}

void Calcolo::Leggi(QStringView Corrente, QStringView Precedente)
{
    if (IsNumero(Corrente)) {
        Impila(ValoreNumero(Corrente));
    } else if (Uguale(Corrente, "("_L1)) {
        Impila(OperatoreDi(Corrente));
    } else if (const std::optional<double> Valore = ValoreCostante(Corrente)) {
        Impila(*Valore);
        if (IsNumero(Precedente))
            Impila(OperatoreDi(u"*"));
    } else {
        LeggiOperatore(Corrente, Precedente);
    }
}

void Calcolo::LeggiOperatore(QStringView Corrente, QStringView Precedente)
{
    const Operatore Nuovo = OperatoreDi(Corrente);
    while (AltezzaOperatori > 0 && !Cima().Aperta && Cima().Priorita >= Nuovo.Priorita) {
        Applica(Cima());
        if (Codice != NessunErrore)
            return;
        --AltezzaOperatori;
    }
    if (AltezzaOperatori == 0)
        return;
    if (Uguale(Corrente, ")"_L1) && Cima().Aperta)
        --AltezzaOperatori;
    else if (Uguale(Corrente, "-"_L1) && Uguale(Precedente, "("_L1))
        Impila(OperatoreDi(u"~"));
    else
        Impila(Nuovo);
}

void Calcolo::Applica(const Operatore& Primo)
{
    const double R = Numeri[static_cast<std::size_t>(AltezzaNumeri)];
    if (AltezzaNumeri >= 2)
        L = Numeri[static_cast<std::size_t>(AltezzaNumeri) - 1];
    if (Primo.Sua != nullptr) {
        if (Primo.Sua->Vietata(L, R)) {
            Codice = Primo.Sua->Errore;
            return;
        }
        Ultimo = Primo.Sua->Valore(L, R);
    }
    if (!Primo.UnOperando)
        --AltezzaNumeri;
    if (AltezzaNumeri < 0 || !std::isfinite(Ultimo)) {
        Codice = ErroreValutazione;
        return;
    }
    Numeri[static_cast<std::size_t>(AltezzaNumeri)] = Ultimo;
}

void Calcolo::Impila(double Numero)
{
    if (AltezzaNumeri == PostiPila)
        Codice = ErroreValutazione;
    else
        Numeri[static_cast<std::size_t>(++AltezzaNumeri)] = Numero;
}

void Calcolo::Impila(const Operatore& Nuovo)
{
    if (AltezzaOperatori == PostiPila)
        Codice = ErroreValutazione;
    else
        Operatori[static_cast<std::size_t>(++AltezzaOperatori)] = Nuovo;
}

std::optional<double> Calcolo::ValoreCostante(QStringView Token) const
{
    if (Uguale(Token, "x"_L1))
        return x;
    if (Uguale(Token, "pi"_L1))
        return PiGreco;
    if (Uguale(Token, "e"_L1))
        return Nepero;
    return {};
}

// In English, while the rest of the program speaks Italian: they are shown as they stand. Codes 11 to 17
// belong to a syntax check that was never part of the program.
constexpr std::array<QLatin1StringView, 19> TestiErrore{
    "No error !"_L1,
    "Error evaluating power function."_L1,
    "Error evaluating logarithm. The argument must be > 0."_L1,
    "Error evaluating tangent."_L1,
    "Error evaluating square root. The argument must be >= 0."_L1,
    "Error evaluating arcsine. The argument must be in [-1, 1]."_L1,
    "Error evaluating arccosine. The argument must be in [-1, 1]."_L1,
    "Division by zero."_L1,
    ""_L1,
    ""_L1,
    ""_L1,
    "Unexpected end of parenthesis."_L1,
    "Operators must be followed by number, constant, function."_L1,
    "Function must be followed by parenthesis."_L1,
    "An error occured in evaluation"_L1,
    "Expression expected."_L1,
    "Unknown function."_L1,
    "Enter the value for which you want to evaluate the function."_L1,
    "An error occured in evaluation"_L1,
};

}  // namespace

double ValutaEspressione(const QString& Testo, double x, int& Errore)
{
    Calcolo Questo(x);
    const QString Letto = TestoDaLeggere(Testo);
    Questo.Esegui(Letto);
    Errore = Questo.Errore();
    if (Errore == ErroreValutazione)
        MsgBox(u"overflow"_s);
    return Errore == NessunErrore ? Questo.Risultato() : 0.0;
}

QString MessaggioErrore(int Errore)
{
    if (Errore < 0 || static_cast<std::size_t>(Errore) >= TestiErrore.size())
        return {};
    return TestiErrore[static_cast<std::size_t>(Errore)];
}
