// The formulas of the extrajudicial tariff, checked before they reach the database.
#pragma once

#include <QString>

#include <optional>

/// Longest formula that the database holds.
constexpr int MassimoFormula = 255;

/// What is wrong with a formula, in Italian; empty when nothing is.
///
/// Only numbers with a point, x, + - * / and round brackets pass. The evaluator takes more, and gives a
/// number for malformed texts too; but a leading minus and an implied product ("2x") mean one thing to it
/// and another to the spreadsheet rules by which a note is reckoned again.
[[nodiscard]] QString DifettoFormula(const QString& Testo);

/// Value at `x`; nothing when the evaluator complains or the result is not finite.
[[nodiscard]] std::optional<double> ValoreFormula(const QString& Testo, double x);
