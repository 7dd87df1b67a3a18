// The percent variation of the honoraria: options of the decree, sign, percent, limits.
// D.m. 140/2012, articles 1, 3, 4, 6, 9, 10, 12.
#pragma once

#include "feenote/parcella.h"

#include <array>

/// One element of optAumRid. Limits in percent; both 0: any variation of the free range.
struct OpzioneAumRid
{
    QStringView Didascalia;
    QStringView Limiti;  ///< the two limits joined by ";"; a negative pair is a reduction
    QStringView Gruppo;  ///< caption of its frame, empty for the free one
};

/// Index of "Altra/nessuna variazione".
constexpr int AumRidLibera = 5;
constexpr int NumAumRid = 11;
[[nodiscard]] const std::array<OpzioneAumRid, NumAumRid>& OpzioniAumRid();

/// Caption of an option, empty outside 0 to 10.
[[nodiscard]] QString DidascaliaAumRid(int Indice);

/// The state of a new note: free option, no percent.
void AzzeraVariazione(Parcella& Nota);

/// Sets option, range, sign list and percent as a file holds them, without reactions.
/// @param VarP signed percent, 0 none; cut to the whole and to 3 digits
void CaricaVariazione(Parcella& Nota, int Indice, double VarP);

/// An option was chosen: its range and first limit hold from now on. The one that stands already changes
/// nothing: a click on it is no choice, and the percent typed for it is the user's.
void ScegliAumRid(Parcella& Nota, int Indice);

/// The text of the percent changed while typing. (Digits only.)
void CambiaTestoAumRid(Parcella& Nota, const QString& Testo);

/// The sign was chosen: 0 "+", 1 "-". The one that stands already changes nothing.
void CambiaSegnoAumRid(Parcella& Nota, int Indice);

/// True when box and sign show something else than the percent in force.
[[nodiscard]] bool VariazioneInSospeso(const Parcella& Nota);

/// Leaving the percent: an empty one chooses the free option; an acceptable one comes into force.
void LasciaAumRid(Parcella& Nota);

/// True when the percent lies within the limits of the option, both inclusive. When it does not and
/// `ShowMessage` is set, the user is told, and the box takes the first limit and the focus.
[[nodiscard]] bool CheckVarPerc(Parcella& Nota, bool ShowMessage);

/// Label over the lines: "+50%", empty without a variation.
[[nodiscard]] QString TestoAumRidOno(const Parcella& Nota);
/// Its tooltip: "Applicato aumento per ..." / "Applicata riduzione per ...".
[[nodiscard]] QString SuggerimentoAumRidOno(const Parcella& Nota);

/// "Applicata riduzione del 50% per ..." / "Applicato aumento 20% per ..." as documents print it; empty
/// without a variation, no "per ..." for the free one.
[[nodiscard]] QString FraseVariazione(const Parcella& Nota);
