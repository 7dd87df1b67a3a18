// The three line tables: their columns, where a new line goes, their sums.
#pragma once

#include "platform/base/tabellarighe.h"

#include <optional>

struct Parcella;

/// Columns of xOnorari. Amounts in euro, with the decimals of the note's decree.
enum ColonnaOnorari {
    OnoData = 0,  ///< date of the service as text; empty at insertion
    OnoDescr = 1,
    OnoQta = 2,
    OnoImporto = 3,  ///< what the fee note charges
    OnoMedio = 4,
    OnoMin = 5,
    OnoMax = 6,
    OnoCodVoce = 7,     ///< value of the catalogue's key column
    OnoNVoce = 8,       ///< number of the item in the decree
    OnoVarPerc = 9,     ///< percent variation of the line, signed; whole but in another program's file
    OnoBaseMedio = 10,  ///< the three base amounts stand before the variation
    OnoBaseMin = 11,
    OnoBaseMax = 12,
    OnoColonne = 13,
};

/// Columns of xDiritti. Amounts in euro with cents.
enum ColonnaDiritti {
    DirData = 0,
    DirDescr = 1,
    DirQta = 2,
    DirImponibile = 3,
    DirEsente = 4,
    DirNVoce = 5,
    DirIDDir = 6,
    DirColonne = 7,
};

/// Columns of xAcconti. Amounts in the row's currency.
enum ColonnaAcconti {
    AccDescr = 0,
    AccValuta = 1,         ///< "E" or "L"; every test goes by the first letter
    AccCorrispettivi = 2,  ///< the part that pays fees
    AccSpeseImp = 3,
    AccSpeseEsenti = 4,
    AccColonne = 5,
};

/// Which list a line goes to.
enum class TipoRiga { Onorari, Diritti };

/// Row for a new line. In the mode "last row", or without a current row, it is behind the last one;
/// else the current row, -1 being taken as 0.
/// @param Corrente the grid's current row, empty when it has none
[[nodiscard]] int RowIns(const Parcella& Nota, TipoRiga Tipo, std::optional<int> Corrente);

/// An amount of a line with the decimals of its decree: whole euro go to the even neighbour from the middle,
/// cents away from zero, as they do wherever there are cents.
[[nodiscard]] double ArrotondaRiga(double Euro, int Decimali);

/// Sum of a column; cells that hold no number count 0. The order is the rows'.
[[nodiscard]] double SommaColonna(const TabellaRighe& Tabella, int Colonna);

/// An amount in euro as lists, sums and documents show it: "1.234,50", "-5,00", 0 as "0".
[[nodiscard]] QString TestoImporto(double Euro);
