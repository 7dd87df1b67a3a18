// Amounts as the older tariffs encoded them: markers below 0, shares between 0 and 1, plain euro.
//
// No line of the present tariff uses them; the decoding stays for catalogues that still hold such values.
#pragma once

#include "feenote/parcella.h"

#include <functional>

/// What the decoding looks at beside the value itself. Amounts in euro.
struct ContestoVecchio
{
    double ValoreCausa = 0.0;                     ///< value of the case, accepted
    double ValoreCasella = 0.0;                   ///< value in the box
    QString QtaOno;                               ///< of the catalogue row; ">" and a number is a floor
    std::array<double, MassimoScaglioni> ScaA{};  ///< upper limits of the brackets, unused ones 0
    /// A field of the catalogue row by bracket number and "Med", "Min" or "Max".
    std::function<double(int Scaglione, const QString& Estremo)> Campo;
};

/// The context of a catalogue row in a note.
[[nodiscard]] ContestoVecchio ContestoDi(const Parcella& Nota, const Recordset& Voce);

/// Decodes one catalogue value.
///
/// @param Tipo "Min" or "Max"
/// @return whole euro, ties to even; shares and ladders are first rounded to 2 decimals away from zero, and
///         the floor is applied before the last rounding
/// @throws Errore as CalcolaMinMaxDaPerc
[[nodiscard]] double CalcolaMinMax(double Valore, const QString& Tipo, const ContestoVecchio& Contesto);

/// Progressive sum over the brackets, whose fields hold negative rates. `Perc` takes no part.
/// @throws Errore 9 when the value lies above all 21 places, 3265 when the catalogue lacks a column
[[nodiscard]] double CalcolaMinMaxDaPerc(double Perc, const QString& Tipo, const ContestoVecchio& Contesto);
