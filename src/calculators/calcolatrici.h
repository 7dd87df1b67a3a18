// The calculators, and what each is called where a name is kept.
#pragma once

#include <QStringView>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>

/// Each by itself; the last value counts them.
enum class Calcolatrice { Termini, Sequenziali, Interessi, Istat, CodiceFiscale, Contributo, Quante };

/// The names of a calculator. None can change: files, shortcuts of a desktop and scripts hold them.
struct NomiCalcolatrice
{
    Calcolatrice Quale;
    QStringView Comando;  ///< word of the command that opens its window
    QStringView NelFile;  ///< key of its list in the file of the last calculations
    QStringView DaRiga;   ///< the same calculation on the command line
};

/// A row for each, in the order of the values.
inline constexpr std::array TabellaCalcolatrici{
    NomiCalcolatrice{Calcolatrice::Termini, u"termini", u"termini", u"termini"},
    NomiCalcolatrice{Calcolatrice::Sequenziali, u"sequenz", u"sequenziali", u"sequenziali"},
    NomiCalcolatrice{Calcolatrice::Interessi, u"inter", u"interessi", u"interessi"},
    NomiCalcolatrice{Calcolatrice::Istat, u"istat", u"istat", u"istat"},
    NomiCalcolatrice{Calcolatrice::CodiceFiscale, u"codfis", u"codicefiscale", u"codfis"},
    NomiCalcolatrice{Calcolatrice::Contributo, u"contrib", u"contributo", u"contributo"},
};
static_assert(TabellaCalcolatrici.size() == std::size_t(Calcolatrice::Quante));
// Each value once, in order.
static_assert(std::ranges::adjacent_find(TabellaCalcolatrici, std::ranges::greater_equal(),
                                         &NomiCalcolatrice::Quale) == TabellaCalcolatrici.end());
