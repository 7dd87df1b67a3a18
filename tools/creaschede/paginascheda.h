// The page of an information sheet: its text and what the directives in it stand for.
//
//   %importi [percentuali [gruppo]]  the amounts; with the percentages that give minimum and maximum from the
//                                    medium, and of a criminal item those that give it from a group's
//   %esempio valore [quantità]       an out-of-court item reckoned at a value
//   %quantità                        how the quantity is asked and counted
//   %vedi S12 C3                     links: category letter and key
#pragma once

#include "creaschede/testischede.h"

/// Heading of the section that every sheet must have: the articles concerned.
inline constexpr QStringView SezioneNorme = u"Nel decreto";

/// Composes the sheet of an item: well-formed, with no colour and no size of its own.
///
/// @throws Errore 5 "file, riga n: motivo" for a directive that is unknown, not fitting or missing where the
///         item has amounts or a quantity, for a link to no item, for marks that are not closed
[[nodiscard]] QString PaginaScheda(const Tariffe& Dati, const QString& Categ, const VoceTariffa& Voce,
                                   const TestiSchede& Testi);
