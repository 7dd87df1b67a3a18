// Payments on account: rows in euro or in lire, since a case can span the change of currency.
#pragma once

#include "feenote/parcella.h"

/// The currency of a row, as the table and the file hold it.
inline constexpr QChar LetteraEuro = u'E';
inline constexpr QChar LetteraLire = u'L';

/// Appends a row as the grid's new row begins: currency "E", no amounts. Returns its index.
int NuovoAcconto(Parcella& Nota);

/// Normalises a row on leaving it: currency to one raised letter, empty amounts to 0.
/// @return false, after telling the user, when the currency is neither E nor L; the row stays as it is
[[nodiscard]] bool CheckAcconto(TabellaRighe& Righe, int Riga);

/// True for euro, told by the first letter, so that "Euro" and "Lire" of a file are understood.
[[nodiscard]] bool InEuro(const QVariant& Valuta);

/// "Euro" or "Lire" as the grid shows it; a click takes the other.
[[nodiscard]] QString ParolaValuta(const QVariant& Valuta);
[[nodiscard]] QString AltraValuta(const QVariant& Valuta);

/// An amount cell as the grid shows it: lire have no cents; 0 and Null show as they stand.
[[nodiscard]] QString TestoAcconto(const QVariant& Importo, const QVariant& Valuta);

/// An amount of a payment in euro, lire converted to 2 decimals; text that is no number counts 0.
[[nodiscard]] double AccontoInEuro(const QVariant& Importo, const QVariant& Valuta);
