// Entering and leaving boxes: the classic LostFocus of a field, which may refuse.
//
// Qt's toolbars, menus and tab bars take no focus on a click, so that no field is left by them: every
// command, tab change, close and print calls ConcludiCampo first, and stops when it answers false.
#pragma once

#include <QString>
#include <Qt>

#include <functional>

class QFocusEvent;
class QLineEdit;
class QTabBar;
class QWidget;

/// What runs when the user leaves a box that he has edited. False refuses: the focus goes back by a queued
/// call. A change of window or an open popup is no leaving. Never re-entered: a message shown inside
/// takes the focus without running it again. A second call for the same box replaces the procedure.
///
/// "Edited" is the box's own mark (QLineEdit::isModified, a text document's): what code writes is no edit.
/// An accepted leaving clears it. An error inside goes to the report installed by InstallaUltimaRete and
/// counts as accepted.
void AlLascia(QWidget* Campo, std::function<bool()> Procedura);

/// The same for a box whose text the user has not touched: runs at every leaving.
void AlLasciaSempre(QWidget* Campo, std::function<bool()> Procedura);

/// Enter, of the letters or of the keypad.
[[nodiscard]] constexpr bool EInvio(int Tasto)
{
    return Tasto == Qt::Key_Return || Tasto == Qt::Key_Enter;
}

/// Runs the leave procedure of the focused field and commits the open cell of a grid.
/// @return false when it refuses
[[nodiscard]] bool ConcludiCampo();

/// A click on a bar of tabs, its wheel and its mnemonics leave the field first; one that refuses keeps the
/// page.
void LasciaPrima(QTabBar* Schede);

/// Something that keeps an edit open of its own (a grid's cell) and can commit it.
class Concludibile
{
public:
    virtual ~Concludibile() = default;
    /// Commits the open edit. @return false when it is refused; the edit stays open
    [[nodiscard]] virtual bool Concludi() = 0;
};

/// Filters what is typed into a box by FiltroTasti's kinds ("d", "n", ",", a list of characters); the
/// keypad's decimal key types a comma where commas are let in, and so does "." in percent boxes. Enter moves
/// to the next field and never presses a default button. Clipboard shortcuts pass. A character that is kept
/// out is told in a tool tip below the box, with what the box takes.
void FiltraTasti(QLineEdit* Campo, const QString& Tipo, bool PuntoInVirgola = false);

/// The characters that the filter has kept out of a box since this was asked last, each of them once; blanks
/// and the sign of the currency, which change no number, are left out.
[[nodiscard]] QString TastiRifiutati(QLineEdit* Campo);

/// An amount box that lets every key in: the keypad's decimal key types a comma, "." too in percent boxes.
/// Enter moves on as above.
void VirgolaDalTastierino(QLineEdit* Campo, bool PuntoInVirgola = false);

/// A box of a percentage: it takes digits, "," and "." only, flush right, and is left as AlLascia has it,
/// whatever it holds.
void CampoPercento(QLineEdit* Campo, std::function<bool()> Procedura);

/// A box of an amount: filtered, flush right; a text that is no number is refused on leaving with
/// "Immettere un valore numerico!", the focus stays, nothing changes. An empty text passes. The procedure
/// runs at every leaving, as AlLasciaSempre has it.
void CampoNumericoSempre(QLineEdit* Campo, std::function<bool()> Procedura);

/// True when losing the focus like this is a leaving, not a change of window or an open popup.
[[nodiscard]] bool LasciaDavvero(const QFocusEvent& Evento);

/// Shows a text that is kept somewhere. The box's limit is one of typing: a longer text, which another
/// program has written, is not cut, and the limit is raised to it while it stands there.
void MostraIntero(QLineEdit* Campo, const QString& Testo);

/// Gives the focus to a widget by a queued call, its text selected, and scrolls the pages around it until it
/// is in view; no leave procedure runs by it.
void RidaiFuoco(QWidget* Campo);

/// Moves the focus on from a widget (or back), as the Tab key does.
void PassaAvanti(QWidget* Da, bool Avanti = true);
