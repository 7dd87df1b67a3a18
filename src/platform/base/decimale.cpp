#include "platform/base/decimale.h"

#include <QString>

#include <charconv>
#include <cmath>

namespace {

void Ripulisci(Decimale& Numero)
{
    while (Numero.Numero > 0 && Numero.Cifre[size_t(Numero.Numero) - 1] == '0')
        --Numero.Numero;
    if (Numero.Zero())
        Numero = Decimale();
}

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

}  // namespace

Decimale Scomponi(double Valore, int MaxCifre)
{
    // The C library is not asked: its decimal sign is that of the machine.
    std::array<char, 32> Testo{};  // d.dddde+ddd
    constexpr auto Forma = std::chars_format::scientific;
    const char* Fine = std::to_chars(Testo.begin(), Testo.end(), std::abs(Valore), Forma, MaxCifre - 1).ptr;
    Decimale Esito;
    Esito.Negativo = std::signbit(Valore);
    Esito.Cifre[0] = Testo[0];
    std::copy_n(Testo.begin() + 2, MaxCifre - 1, Esito.Cifre.begin() + 1);
    Esito.Numero = MaxCifre;
    const char* Esponente = Testo.begin() + MaxCifre + 2;
    std::from_chars(Esponente + (*Esponente == '+' ? 1 : 0), Fine, Esito.Punto);
    ++Esito.Punto;
    Ripulisci(Esito);
    return Esito;
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
    Ripulisci(Numero);
}

double InDoppio(const Decimale& Numero)
{
    std::array<char, 32> Testo{'0'};
    char* Coda = std::copy_n(Numero.Cifre.begin(), Numero.Numero, Testo.begin() + 1);
    *Coda++ = 'e';
    Coda = std::to_chars(Coda, Testo.end(), Numero.Punto - Numero.Numero).ptr;
    const double Assoluto = LeggiPiano(Testo.begin(), Coda);
    return Numero.Negativo ? -Assoluto : Assoluto;
}

double LeggiPiano(const char* Inizio, const char* Fine)
{
    double Valore = 0.0;
    if (std::from_chars(Inizio, Fine, Valore).ec == std::errc())
        return Valore;
    // The quick way does not tell a number too large from one too small.
    return QString::fromLatin1(Inizio, Fine - Inizio).toDouble();
}
