// Parameters of the proceeding: category, authority, bracket, value of the case, and how each depends on
// the others. Rules work on the record; what they want to ask or tell goes through the message seam.
//
// A change never recomputes the lines at once: it sets RicalcoloNecessario, and the next entry to the
// honoraria recalculates.
#pragma once

#include "core/mancanza.h"
#include "feenote/parcella.h"

// ---- lists --------------------------------------------------------------------------------------

/// Fills the authorities of a category, nothing selected; the list is enabled only when it has entries.
/// A failure is reported, and the list stays as far as it was filled.
void LoadAutorità(Parcella& Nota, const QString& Cat);

/// Fills the brackets of a category, nothing selected. Does nothing while the note has no category.
/// A failure (more than 21 rows too, error 9) is reported, and the list stays as far as it was filled.
void LoadScaglioni(Parcella& Nota, const QString& Cat);

/// Selects the first bracket whose limits, both inclusive, hold the value (euro), with everything that a
/// change of the bracket brings; none: the list is left alone. @return false when the user refused the change
bool SelSca(Parcella& Nota, double Valore);

// ---- changes made by the user -------------------------------------------------------------------

/// An option of the variation that the category lacks is told, and gives way to the free one.
void CambiaCategoria(Parcella& Nota, int Indice);

/// May be refused: an authority not compatible with the lines is told, a recalculation is asked for; the
/// former authority is then selected again. An option of the variation that is not meant for it is named in
/// the question, or told where none is asked. The one that stands already changes nothing.
void CambiaAutorita(Parcella& Nota, int Indice);

/// May be refused when lines exist: the former bracket and value then stand again. A value outside the new
/// bracket, or any value with the undetermined one, empties the box. @return false when the user refused
bool CambiaScaglione(Parcella& Nota, int Indice);

/// True when leaving the box of the value has something to do though nobody typed in it: what it shows is not
/// the value accepted, or it holds one for which no bracket, the undetermined one or another's stands
/// selected.
[[nodiscard]] bool ImportoInSospeso(const Parcella& Nota);

/// Index of the bracket that leaving the box would choose for the value in it: another one than the selected
/// bracket. NessunaVoce when there is none to be chosen.
[[nodiscard]] int ScaglioneProposto(const Parcella& Nota);

/// Leaving the box of the value: reformats it, accepts it (rounded to 2 decimals), picks its bracket. When
/// the user refuses the new bracket, value, box and flag are as before it was typed.
void LasciaImporto(Parcella& Nota);

// ---- checks and banner --------------------------------------------------------------------------

/// What the checks of the parameters say, in the order of their table.
enum class FraseParametri {
    Categoria,
    Autorita,
    Scaglione,
    ValoreEsatto,
    SopraIlMassimo,  ///< chosen by no check: FuoriScaglione speaks of both limits
    FuoriScaglione,
    Variazione,      ///< %1, %2: the limits, percent
    OltreLaTariffa,  ///< %1: the last limit, euro; %2: the decree
};
[[nodiscard]] QString TestoFrase(FraseParametri Quale);

/// True when the move from the last accepted authority to the selected one is allowed.
[[nodiscard]] bool CheckAutorCompatib(const Parcella& Nota);

/// The first failing test of the parameters, the variation left out; empty when all is in order.
[[nodiscard]] std::optional<Mancanza<CampoNota>> PrimaMancanza(const Parcella& Nota);

/// The check before printing, saving and inserting. The first test that fails is told when `ShowMessage`
/// is set, and the control to focus is named in the record either way.
[[nodiscard]] bool CheckOK(Parcella& Nota, bool ShowMessage);

/// "Civile o Amministrativa - Tribunale ordinario - da € ... - Valore: 30.000,00 €"; a decree that notes name
/// stands in front.
[[nodiscard]] QString TestoDatiBase(const Parcella& Nota);
/// The same for less room, the longest first: the bracket in few letters, left out where the value tells it,
/// without the category, with the first words of the court.
[[nodiscard]] QStringList DatiBaseInBreve(const Parcella& Nota);
/// "da € 50.000,01 a € 100.000,00" without the signs, then as "50.000–100.000", then as "50–100 mila".
[[nodiscard]] QStringList ScaglioneInBreve(const QString& Limiti);

// ---- silent setting, for a new note and for loading ----------------------------------------------

/// What the file had chosen speaks of another category or decree: it is kept no longer.
void LasciaTenute(Parcella& Nota);

/// Selects category, authority and bracket by list index without any reaction: lists loaded, states set by
/// category, last accepted values and Scaglione follow. An index outside its list stays unselected.
void SelezionaInSilenzio(Parcella& Nota, int Categ, int Autor, int Valore);
void SelezionaAutoritaInSilenzio(Parcella& Nota, int Indice);
void SelezionaScaglioneInSilenzio(Parcella& Nota, int Indice);
/// Value of the case, euro; not above 0: an empty box.
void ImpostaValoreInSilenzio(Parcella& Nota, double Valore);
/// The bracket that holds the accepted value, if there is one.
void SelezionaScaglioneDelValore(Parcella& Nota);

/// True for a bracket of undetermined value, told by the first 20 characters of its text.
[[nodiscard]] bool Indeterminato(const ScaglioneValore& Sca);
