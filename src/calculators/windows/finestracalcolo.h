// What the windows of the calculators share: Enter, the clipboard, their results, their place on the screen.
//
// Their habits are event filters and functions on a plain QDialog: the windows have no base class of their
// own.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class QAbstractButton;
class QDialog;
class QLabel;
class QWidget;

/// Makes a dialog the window of a calculator: a place of its own in the task bar, picture, mnemonics,
/// accessible names, Enter on every button, scroll bars where the screen is smaller than its content. It goes
/// when it is closed, as nothing of a calculation survives its window, but never from under a procedure of
/// its own that a box holds up; its place, kept under its objectName, stays. Call it behind setupUi and
/// ImpostaMenu.
void PreparaModulo(QDialog* Modulo, const QString& NomeIcona);

/// An entry of the menu of a calculator.
struct VoceMenu
{
    QString Nome;  ///< of the action
    QString Testo;
    QKeySequence Tasti;
    std::function<void()> Procedura;
};

/// The menu of a calculator, its entries side by side. Call it behind setupUi.
void ImpostaMenu(QDialog* Modulo, const QList<VoceMenu>& Voci);

/// Shows the window where it was last time, or brings it to the front.
/// @return true when it was not on screen
bool MostraModulo(QDialog* Modulo);

/// Makes a window on view as large as its content has become, where the screen has room; it never shrinks.
void FaiPosto(QDialog* Modulo);

/// Enter in one of the fields goes on to the next that is enabled and on view, and calculates from the last
/// one; it never presses the default button. Of several options only the selected one is stopped at.
void CatenaInvio(const QList<QWidget*>& Campi, const std::function<void()>& Calcola);

/// What is copied as a table, beside its text.
using RigheCopia = std::function<QList<QStringList>()>;

/// A click on the button puts the text into the clipboard and says so; where there are rows, as a table too.
/// An empty text copies nothing.
void CopiaConClic(QAbstractButton* Pulsante, const std::function<QString()>& Testo,
                  const RigheCopia& Righe = {});

/// The same for the result of the window, which Ctrl+C copies too where nothing is selected by hand.
void CopiaRisultato(QDialog* Modulo, QAbstractButton* Pulsante, const std::function<QString()>& Testo,
                    const RigheCopia& Righe = {});

/// Ctrl+C alone, for a window whose button copies something else. `Pulsante` is where it is said.
void CopiaConTasto(QDialog* Modulo, QAbstractButton* Pulsante, const std::function<QString()>& Testo,
                   const RigheCopia& Righe = {});

/// A caption of a result as one pastes it into a letter: no runs of blanks, no blank lines, "\n" between
/// lines.
[[nodiscard]] QString DidascaliaPulita(const QString& Didascalia);

/// The larger letters of a result; its room is kept while it is empty.
void PreparaCifra(QWidget* Cifra);
/// The quiet panel behind a result.
void SfondoPannello(QWidget* Pannello);

/// Shows a result; a screen reader hears it behind its caption.
void MostraCifra(QLabel* Cifra, const QLabel* Didascalia, const QString& Testo);

/// Lets go what Tab has selected in the focused box, so that Ctrl+C takes the result that has just come.
void LasciaSelezione();

/// Opens the update of program and rates, with its word "run" or none.
void ApriAggiornamento(const QString& Parola);
