// The parties of an electronic invoice: codes, names, seats, where the file goes.
#pragma once

#include "feenote/einvoice/raccolta.h"

/// What the two regimes of a client's country, and of a file's format, call the place where a file goes.
inline constexpr QStringView DestinatarioIgnoto = u"0000000";
inline constexpr QStringView DestinatarioEstero = u"XXXXXXX";
inline constexpr QStringView FormatoPrivati = u"FPR12";
inline constexpr QStringView FormatoPubblica = u"FPA12";

/// Fills in the seller, its regime, and who transmits.
void ComponiCedente(FatturaElettronica& Fattura, const Cedente& Studio, Raccolta& Note);

/// Fills in the client and where the file goes. A client of which nothing is known is one sentence.
void ComponiCessionario(FatturaElettronica& Fattura, const Cessionario& Cliente, Raccolta& Note);
