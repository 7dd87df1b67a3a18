// The codes of the rules that the computation asks for, and the check of a whole set of norms.
#pragma once

#include "calculators/norme/norme.h"

namespace regole {

inline constexpr QStringView Computo = u"computo";
inline constexpr QStringView Festivo = u"festivo";
inline constexpr QStringView Domenica = u"domenica";
inline constexpr QStringView Sabato = u"sabato";
inline constexpr QStringView Ritroso = u"ritroso";
inline constexpr QStringView Differito = u"differito";
inline constexpr QStringView AMesi = u"mesi";
inline constexpr QStringView SospensioneRitroso = u"sospensione a ritroso";
inline constexpr QStringView Libero = u"libero";
inline constexpr std::array Tutte{Computo,   Festivo, Domenica,           Sabato, Ritroso,
                                  Differito, AMesi,   SospensioneRitroso, Libero};

}  // namespace regole

/// What rows have to be to one another: suspensions without gap or overlap, holidays once a day, codes once,
/// chains of terms that are there, brackets that touch, amounts that follow in time.
/// @throws Errore 5 with a sentence
void ControllaNorme(const Norme& Insieme);
