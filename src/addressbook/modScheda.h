// What the card of a row knows without its boxes: widths by type, a value as text and back, hints.
#pragma once

#include "platform/database/database.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <optional>

/// The engine's code of a type by its name ("Boolean" 1 to "Memo" 12); 0 for any other name.
[[nodiscard]] int GetFieldType(const QString& Nome);

/// Width of the box of a field, in twips, by the code of its type; that of a text for a code that is none.
[[nodiscard]] int GetFieldWidth(int Tipo);

/// A value as a card shows it, in full: "Sì" or "No", dates with their time if they have one; empty for Null.
[[nodiscard]] QString TestoScheda(const QVariant& Valore);

/// What is written into a field for a typed text: dates with or without separators, truth values as Sì, No,
/// Vero, Falso, 1, 0, -1. An emptied box is Null for numbers and dates, "" for text, false for a truth value.
/// @throws Errore 3421 a text that the field cannot hold, with the field's name; 3163 a text too long
[[nodiscard]] QVariant ValoreScheda(const Campo& Colonna, const QString& Testo);

/// Writes a typed text into the row being added or edited.
///
/// A new `Nominativo` takes the column `Controp` with it, where the table has one, as long as that is empty
/// or equal to the name of before: nobody is to see two names of a counterparty without wanting them.
/// @throws Errore as ValoreScheda and Recordset::ImpostaValue
void ScriviScheda(Recordset& Righe, const Campo& Colonna, const QString& Testo);

/// The column of a name, whatever its case, among those of a set; null when it has none.
[[nodiscard]] const Campo* TrovaCampo(const QList<Campo>& Campi, const QString& Nome);

/// A quiet word on what a box holds; empty when there is nothing to say. Nothing is refused by it.
[[nodiscard]] QString AvvisoScheda(const QString& Campo, const QString& Testo);

/// Caption of a card by its mode, "new", "edit" or "view".
[[nodiscard]] QString DidascaliaScheda(const QString& Modalità);

using DatoreDiChiavi = std::function<std::optional<qint64>()>;

/// Writes the open edit to the file. A row that another program has changed since the edit began is told
/// before it is overwritten.
/// @param ChiaveNuova gives the key of a new row that has none (PrimaChiaveLibera); nobody writes meanwhile
/// @return false when the user does not want to overwrite it; the edit stays open
/// @throws Errore as Recordset::Update; the edit stays open then too
[[nodiscard]] bool SalvaScheda(Recordset& Righe, const DatoreDiChiavi& ChiaveNuova);

/// Asks whether the changes of an open edit are to be saved. @return vbYes, vbNo or vbCancel
[[nodiscard]] int ChiediSeSalvareScheda();
