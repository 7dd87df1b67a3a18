// The switches of taxes and print: what a click on them changes, what a print type forces and gives back.
#pragma once

#include "feenote/parcella.h"

#include <array>

/// The four switches that carry a percent box.
enum class Imposta { IVA, RA, CP, SpeseGen };
inline constexpr std::array Imposte{Imposta::IVA, Imposta::RA, Imposta::CP, Imposta::SpeseGen};

/// Where the record keeps a tax, and the rate that the session proposes for it.
struct VoceImposta
{
    Spunta Parcella::*Tick;
    Casella Parcella::*Box;  ///< percent, as typed
    bool MemoriaStampa::*TickRicordato;
    QString MemoriaStampa::*TestoRicordato;
    float* Predefinito;  ///< percent
};
[[nodiscard]] const VoceImposta& DatiImposta(Imposta Tassa);

/// A click on a switch: the box takes the session's default (general expenses that of the note's decree, if
/// it has one), or is emptied; the note is marked; outside the court costs note the switch is remembered.
/// @return true when the warning of the court costs note is due, at most once per window
[[nodiscard]] bool ClicImposta(Parcella& Nota, Imposta Tassa, bool Attiva);

/// Highest percent of a tax, of the pension fund and of general expenses.
inline constexpr double MassimoPercento = 100.0;

/// The text of a percent box changed.
void CambiaPercento(Parcella& Nota, Imposta Tassa, const QString& Testo);

/// chkRegSempl changed: VAT and withholding are cleared and disabled, deferred VAT too; lifting it brings
/// back what the note had, deferred VAT excepted.
void CambiaRegime(Parcella& Nota, bool Attivo);

/// chkMinMax and chkAcconti changed by the user.
void CambiaMinMax(Parcella& Nota, bool Attivo);
void CambiaAcconti(Parcella& Nota, bool Attivo);

/// Copies all switches and box texts into the memory that print types restore from.
void RicordaStampa(Parcella& Nota);

/// The switches and box texts of the note itself, whatever the print type in view forces: what its file
/// keeps. What the subsidised regime has cleared is cleared here too, since no file knows the regime.
[[nodiscard]] MemoriaStampa StampaPropria(const Parcella& Nota);

/// The print type was chosen: switches are forced, disabled or restored by its rules.
void ScegliTipoStampa(Parcella& Nota, int Tipo);
