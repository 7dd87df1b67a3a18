// The court filing fee (contributo unificato): D.p.r. 115/2002 as of D.L. 90/2014, in force from 24 June
// 2014.
#pragma once

#include <QString>

#include <array>

/// Which table a value field uses.
enum class TabellaContributo { Ordinaria, Dimezzata, Tributaria };

/// The tables of the fields txtValore(0..4).
inline constexpr std::array TabelleCampi{TabellaContributo::Ordinaria, TabellaContributo::Dimezzata,
                                         TabellaContributo::Dimezzata, TabellaContributo::Dimezzata,
                                         TabellaContributo::Tributaria};
constexpr int CampiContributo = int(TabelleCampi.size());
constexpr int CampoTributario = CampiContributo - 1;

/// Fee in euro for a value in euro; the halved one keeps its cents (43 gives 21,50). The value is rounded to
/// 2 decimals, ties to even, first. Any value has a fee, a negative one that of the first bracket.
[[nodiscard]] double Contributo(double ValoreEuro, TabellaContributo Tabella);

/// Leaving a value field: its text rounded to 2 decimals (ties to even) in the pattern "#,##0.00". An empty
/// text stays empty, one that is no number stays as typed.
///
/// The rounding comes before the pattern, whose ties go away from zero: 1100,005 shows 1.100,00 and so keeps
/// the fee that it had when it was typed.
[[nodiscard]] QString ValoreLasciato(const QString& Testo);

using TestiContributo = std::array<QString, CampiContributo>;

/// The results of all fields, as every leaving of one computes them anew: "#,##0.00"; empty for an empty
/// value, except in the tax field, which keeps what it shows.
/// @throws Errore 13 at the first text that is no number; the results before it are written
void CalcolaContributi(const TestiContributo& Valori, TestiContributo& Contributi);
