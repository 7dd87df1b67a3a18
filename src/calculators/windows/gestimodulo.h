// Small habits of the calculators' windows: their results, the road to the update.
#pragma once

#include <QString>

class QLabel;
class QWidget;

/// The larger letters of a result; its room is kept while it is empty.
void PreparaCifra(QWidget* Cifra);
/// The quiet panel behind a result.
void SfondoPannello(QWidget* Pannello);

/// Shows a result; a screen reader hears it behind its caption.
void MostraCifra(QLabel* Cifra, const QLabel* Didascalia, const QString& Testo);

/// Lets go what Tab has selected in the focused box, so that Ctrl+C takes the result that has just come.
void LasciaSelezione();

/// Opens the update of program and rates.
void ApriAggiornamento();
