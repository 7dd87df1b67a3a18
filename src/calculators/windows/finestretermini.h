// What the windows of the two calculators of terms share: the panel of the result, the notices.
#pragma once

#include <QString>

#include <functional>

class MascheraData;
class QAbstractButton;
class QLabel;
class QWidget;

/// The larger letters of a result, and the picture of its copy button. `Ingrandimento` is the factor on the
/// form's own letters; there is room for `Righe` lines from the start, so that nothing moves when they come.
void PreparaPannello(QLabel* Risultato, QAbstractButton* Copia, double Ingrandimento, int Righe);

/// Shows a result, or takes it away with an empty text, and lets it be copied as long as there is one. A
/// screen reader is told of it.
void ScriviRisultato(QLabel* Risultato, QAbstractButton* Copia, const QString& Testo);

/// A hidden widget keeps its room, so that nothing moves when it comes.
void NonSpostare(QWidget* Oggetto);

/// The focus on a date with nothing selected: the next date is typed over it, and Ctrl+C means the result.
void VaiSullaData(MascheraData* Data);

/// Runs a calculation, whose failure is reported, and goes back to the date it counts from: ready for the
/// next one when it succeeded, given back as it stands when it did not.
void CalcolaDallaData(MascheraData* Data, const std::function<bool()>& Calcola);

/// Whether there is a viewer for the notices on terms.
[[nodiscard]] bool HaAvvertenze();
void ApriAvvertenze(const QString& Titolo);
