// The computation of a term by a set of norms, with its road.
#pragma once

#include "calculators/modTermini.h"
#include "calculators/norme/norme.h"
#include "calculators/strada.h"

inline constexpr int TipoAnni = 2;

/// What is to be counted.
struct RichiestaTermine
{
    QDate Decorrenza;
    int Numero = 0;
    int Tipo = TipoGiorni;
    OpzioniTermine Opzioni;
    /// The matter spares the term from the suspension (code of a NormaMateria); empty for none.
    QString Materia{};
    /// Shown as the norm of the days; empty: art. 155 c.p.c.
    QString Norma{};
    /// No source says whether the suspension holds: the road says so.
    bool SospensioneIgnota = false;
    /// No verified rule says whether a Saturday moves it: the road says so, whether it does or not.
    bool SabatoIgnoto = false;
    /// The suspension does not count by the term's own norm, not by choice.
    bool MaiSospeso = false;
};

/// A due date with its reasons.
struct EsitoTermine
{
    QDate Scadenza;
    bool Spostata = false;  ///< the suspension was met, or the date moved off a holiday, Sunday or Saturday
    Strada Passi;
    QStringList Note{};  ///< what the user must know: "norme note fino al ...", what is not verified

    friend bool operator==(const EsitoTermine&, const EsitoTermine&) = default;
};

/// By the norms in force.
/// @throws Errore 5 with a sentence: before the oldest norm, outside the calendar, no such matter
[[nodiscard]] EsitoTermine ComputaTermine(const Norme& Insieme, const RichiestaTermine& Richiesta);
/// By the set that was chosen: with Programma the result is ContaTermine's to the letter (matter and norm
/// count for nothing), with Vigenti that of NormeVigenti().
[[nodiscard]] EsitoTermine ComputaTermine(InsiemeNorme Insieme, const RichiestaTermine& Richiesta);
