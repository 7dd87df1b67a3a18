// The decimal text of a number: the 15 significant digits on which every rounding is judged.
#pragma once

#include <QChar>

#include <algorithm>
#include <array>

constexpr int CifreDoppio = 15;  ///< significant digits a double is trusted for
constexpr int CifreSingolo = 7;  ///< the same for single precision

/// A number as its significant digits: 0,<Cifre> times 10 to the Punto. No trailing zeros; zero has no
/// digits and no sign.
struct Decimale
{
    bool Negativo = false;
    int Punto = 0;
    int Numero = 0;  ///< digits in use
    std::array<char, CifreDoppio> Cifre{};

    [[nodiscard]] bool Zero() const { return Numero == 0; }
    /// Digits before and behind the decimal sign.
    [[nodiscard]] int Intere() const { return std::max(Punto, 0); }
    [[nodiscard]] int Decimali() const { return std::max(Numero - Punto, 0); }

    /// The digit that counts 10 to the Posto: 0 are the units, -1 the tenths.
    [[nodiscard]] QChar Cifra(int Posto) const
    {
        const int Indice = Punto - 1 - Posto;
        return QLatin1Char(Indice >= 0 && Indice < Numero ? Cifre[size_t(Indice)] : '0');
    }
};

/// The digits of a finite number.
/// @param MaxCifre digits kept, 2 to 15, nearest to the binary value
[[nodiscard]] Decimale Scomponi(double Valore, int MaxCifre = CifreDoppio);

enum class Pareggio { AlPari, LontanoDaZero };

/// Cuts the number to so many decimals, to the nearest; the rule decides a tie.
void Arrotonda(Decimale& Numero, int Decimali, Pareggio Regola);

/// The nearest double, infinite when there is none; never -0.
[[nodiscard]] double InDoppio(const Decimale& Numero);

/// Reads digits with an optional point and exponent, without a sign; infinite when too large.
[[nodiscard]] double LeggiPiano(const char* Inizio, const char* Fine);
