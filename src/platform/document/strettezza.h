// How far a document that passes its page by little is tightened to take one.
#pragma once

#include <algorithm>
#include <cmath>

/// What a document gives up of its room; 1 is all of it.
struct Strettezza
{
    double Bianche = 1.0;     ///< of blank rows and of the room between rows
    double Interlinea = 1.0;  ///< of a line's own height
    double Corpo = 1.0;       ///< of the size of its letters

    friend bool operator==(const Strettezza&, const Strettezza&) = default;
};

// The limits. Blank rows of two fifths still part what they part; they give most, since nobody reads them.
// The lines of the package's fonts take 1.15 of their size, and their letters 1.1 from the highest accent to
// the lowest tail: at 1.08 these hardly ever meet. Letters lose a tenth at most, and none below nine points,
// under which a contract is hard to read on paper; what is smaller by itself stays as it is.
inline constexpr double BiancheMinime = 0.4;
inline constexpr double InterlineaMinima = 0.94;
inline constexpr double CorpoMinimo = 0.9;
inline constexpr double PuntiMinimi = 9.0;

/// Steps in which each of the three is given up, one behind the other: blank rows first, letters last.
inline constexpr int PassiStrettezza = 5;
inline constexpr int GradoMassimo = 3 * PassiStrettezza;

/// @param Grado 0, nothing is given up, to GradoMassimo
[[nodiscard]] constexpr Strettezza StrettezzaDi(int Grado)
{
    const auto Parte = [Grado](int Prima, double Minimo) {
        const int Passi = std::clamp(Grado - Prima, 0, PassiStrettezza);
        return 1.0 - (1.0 - Minimo) * Passi / PassiStrettezza;
    };
    return {Parte(0, BiancheMinime), Parte(PassiStrettezza, InterlineaMinima),
            Parte(2 * PassiStrettezza, CorpoMinimo)};
}

/// The size of letters, in points: in half points, as word processors reckon, and rather the greater one.
[[nodiscard]] inline double PuntiStretti(double Punti, const Strettezza& Quanto)
{
    constexpr double Mezzi = 2.0;
    constexpr double Tolleranza = 1e-9;
    return std::min(Punti,
                    std::max(std::ceil(Punti * Quanto.Corpo * Mezzi - Tolleranza) / Mezzi, PuntiMinimi));
}
