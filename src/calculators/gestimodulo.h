// Small habits of the calculators' windows: their results, the road to the update.
#pragma once

#include <QString>

#include <functional>

class QAbstractButton;
class QLabel;
class QWidget;

/// The larger letters of a result; its room is kept while it is empty.
void PreparaCifra(QWidget* Cifra);
/// The quiet panel behind a result.
void SfondoPannello(QWidget* Pannello);

/// Shows a result; a screen reader hears it behind its caption.
void MostraCifra(QLabel* Cifra, const QLabel* Didascalia, const QString& Testo);

/// A click on the button puts the text into the clipboard and says so. An empty text copies nothing.
void CopiaConClic(QAbstractButton* Pulsante, std::function<QString()> Testo);

/// Lets go what Tab has selected in the focused box, so that Ctrl+C takes the result that has just come.
void LasciaSelezione();

/// Opens the update of program and rates.
void ApriAggiornamento();
