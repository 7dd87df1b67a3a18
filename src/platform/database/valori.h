// Between QVariant and the stored forms of the engine's types.
#pragma once

#include "platform/database/database.h"

#include <QString>
#include <QVariant>

#include <optional>

/// The declaration of a column ("TEXT(60)", "DATETIME TEXT"), chosen so that SQLite's affinity keeps text
/// as it is typed: dates and memos are text to it, "00123" stays "00123".
[[nodiscard]] QString Dichiarazione(const Campo& Colonna);

/// Type and size read from a declaration, as of a column that ALTER TABLE added; unknown words go by
/// SQLite's own affinity rules.
[[nodiscard]] Campo CampoDaDichiarazione(const QString& Nome, const QString& Dichiarata);

/// The type of a code, none for a code that is no type.
[[nodiscard]] std::optional<TipoCampo> TipoDaCodice(qint64 Codice);
[[nodiscard]] bool EDiTesto(TipoCampo Tipo);

/// The value as its column holds it: numbers to text and text to numbers in Italian form, dates from
/// day/month/year, whole numbers rounded (ties to even). Null stays Null.
/// @throws Errore 3421 (with the column's name) for anything else, 3163 a text that is too long
[[nodiscard]] QVariant PerColonna(const Campo& Colonna, const QVariant& Valore);

/// Dates as they are stored: yyyy-mm-dd, with "Thh:mm:ss" when there is a time.
[[nodiscard]] QString DataIso(const QDateTime& Quando);
[[nodiscard]] QString DataIso(const QDate& Giorno);
/// A stored date: QDate, QDateTime when it has a time, invalid when it cannot be read.
[[nodiscard]] QVariant LeggiDataIso(const QString& Testo);

/// The decimal number that a single-precision one stands for: 12.7 and not 12.6999998.
[[nodiscard]] double DaSingolo(float Valore);
