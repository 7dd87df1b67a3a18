// The percent variation of the honoraria: options of the decree, sign, percent, limits; and the increase for
// the parties that one lawyer assists.
//
// The options of a note are those of its decree's reference database, for its category and authority, or else
// the eleven of D.m. 140/2012 (articles 1, 3, 4, 6, 9, 10, 12), or the free one alone under another decree.
// An option is known by its number, which is its index among the eleven.
#pragma once

#include "feenote/parcella.h"

/// Number of "Altra/nessuna variazione", in every list.
constexpr int AumRidLibera = 5;
constexpr int NumAumRid = 11;
/// The eleven of D.m. 140/2012.
[[nodiscard]] const QList<OpzioneAumRid>& OpzioniAumRid();

/// The options that a note offers, in order; the free one is among them.
[[nodiscard]] QList<OpzioneAumRid> OpzioniAumRid(const Parcella& Nota);
/// An option of the note's list by its number, whatever the authority; null for none.
[[nodiscard]] const OpzioneAumRid* OpzioneDi(const Parcella& Nota, int Numero);

/// Caption of one of the eleven, empty outside 0 to 10.
[[nodiscard]] QString DidascaliaAumRid(int Indice);

/// Loads the list of the note's decree and category. What could not be read is reported.
void LoadVariazioni(Parcella& Nota);

/// The state of a new note: free option, no percent.
void AzzeraVariazione(Parcella& Nota);

/// Sets option, range, sign list and percent as a file holds them, without reactions. An option that the list
/// lacks becomes the free one, with its percent; of a list that a database gives or should give this is told.
/// @param VarP signed percent, 0 none; cut to the whole and to 3 digits
void CaricaVariazione(Parcella& Nota, int Indice, double VarP);

/// The option that the note's file names: the one in force, or the one that the list lacks and the free one
/// stands for.
[[nodiscard]] int VariazioneDelFile(const Parcella& Nota);

/// The option in force is not meant for the note's category or authority, or is another decree's.
[[nodiscard]] bool VariazioneAltrui(const Parcella& Nota);
/// The note's authority, category or decree is another one: an option that is not meant for it gives way to
/// the free one, without a percent. Without a word: see FraseVariazioneTolta.
void LasciaVariazioneAltrui(Parcella& Nota);
/// "La variazione «...» non è prevista per l'autorità selezionata e viene tolta."
/// @param Dove "per l'autorità selezionata", "dalla tariffa D.m. 140/2012"
[[nodiscard]] QString FraseVariazioneTolta(const Parcella& Nota, const QString& Dove);

/// An option was chosen: its range and first limit hold from now on. The one that stands already changes
/// nothing: a click on it is no choice, and the percent typed for it is the user's. Only where the free one
/// stands for an option that the list lacks does a click on it take its place in the file too.
void ScegliAumRid(Parcella& Nota, int Indice);

/// The text of the percent changed while typing. (Digits only.)
void CambiaTestoAumRid(Parcella& Nota, const QString& Testo);

/// The sign was chosen: 0 "+", 1 "-". The one that stands already changes nothing.
void CambiaSegnoAumRid(Parcella& Nota, int Indice);

/// True when box and sign show something else than the percent in force.
[[nodiscard]] bool VariazioneInSospeso(const Parcella& Nota);

/// Leaving the percent: an empty one chooses the free option; an acceptable one comes into force.
void LasciaAumRid(Parcella& Nota);

/// True when the percent lies within the limits of the option, both inclusive. When it does not and
/// `ShowMessage` is set, the user is told, and the box takes the first limit and the focus.
[[nodiscard]] bool CheckVarPerc(Parcella& Nota, bool ShowMessage);

// ---- what it makes of a line

/// The signed percent for the line of an item, by its key: 0 for an item that the option does not touch.
[[nodiscard]] int VariazioneDi(const Parcella& Nota, const QVariant& CodVoce);
/// The percent that stands behind a whole one: a third behind 33, where the option says so.
[[nodiscard]] double PercentoEsatto(const Parcella& Nota, int VarPerc);
/// The option by which the lines are varied: the list's, or the one that the file has kept with them. Null
/// for one that neither has.
[[nodiscard]] const OpzioneAumRid* OpzioneInForza(const Parcella& Nota);
/// The lines are about to be recalculated: what the file has kept of their variation holds no more, but for
/// the parties where the database does not say what they add.
void LasciaVariazioneSalvata(Parcella& Nota);

// ---- parties assisted

/// The largest number of parties that a note takes.
constexpr int MassimoParti = 999;

/// True where the database says what further parties add: the box is shown for the decrees that have it, and
/// enabled for the categories.
[[nodiscard]] bool PartiContano(const Parcella& Nota);
/// What the parties beyond the first add to the fees, percent: by the list, or as the file has kept it.
[[nodiscard]] int AumentoParti(const Parcella& Nota);
/// The box of the parties was left: below 1 counts as one.
void LasciaParti(Parcella& Nota);
/// The number of the parties as a file or a description holds it, without reactions.
void CaricaParti(Parcella& Nota, int Quante);
/// Tells of a note just loaded whose further parties add nothing any more because the database lacks them.
void VerificaParti(const Parcella& Nota);
/// "Aumento del 60% per 3 parti assistite (art. 4, comma 2, D.m. 55/2014)"; empty where they add nothing.
[[nodiscard]] QString FraseParti(const Parcella& Nota);

// ---- how it is shown

/// Label over the lines: "+50%", empty without a variation.
[[nodiscard]] QString TestoAumRidOno(const Parcella& Nota);
/// Its tooltip: "Applicato aumento per ..." / "Applicata riduzione per ...".
[[nodiscard]] QString SuggerimentoAumRidOno(const Parcella& Nota);

/// "Applicata riduzione del 50% per ..." / "Applicato aumento 20% per ..." as documents print it, or the
/// sentence of the option's own; empty without a variation, or where a declared decree's option for certain
/// items has varied no line; no "per ..." for the free one. Label and tooltip are empty there too.
[[nodiscard]] QString FraseVariazione(const Parcella& Nota);
