// The electronic invoice as a file.
#pragma once

#include "feenote/einvoice/fattura.h"

#include <QByteArray>

/// A number of the office's counter as the name of the file bears it: base 36, five characters ("0000A").
/// @throws Errore 6 for 0, a negative number, or one beyond UltimoProgTrasm
[[nodiscard]] QString ProgressivoFile(int Numero);

/// "IT<tax code>_<progressive>.xml", the name under which the exchange system takes the file.
[[nodiscard]] QString NomeFileFattura(const FatturaElettronica& Fattura);

/// The document in UTF-8.
[[nodiscard]] QByteArray XmlFattura(const FatturaElettronica& Fattura);

/// Writes the file, whole or not at all, once our own reader has found nothing wrong with its bytes.
///
/// @throws Errore 58 when a file of this name is there, which stays; NumeroFatturaRifiutata with the first
/// sentence of the checks; 75, 76, 61, 57, 55 as ScriviFile
void SalvaFattura(const QString& File, const FatturaElettronica& Fattura, const QDate& Oggi);

/// The number of the error of a document that the checks refuse.
inline constexpr int NumeroFatturaRifiutata = 322;
