// Helpers for texts, numbers and dates that the whole program shares.
#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

/// Lire into euro at the fixed rate 1936.27 (Reg. CE 2866/98), rounded to 2 decimals, ties to even.
[[nodiscard]] double LireEuro(double Lire);

/// "Lunedì,  24 Settembre  2012": two blanks before day and year, the place of their sign; empty for no date.
[[nodiscard]] QString DataLunga(const QDate& Data);

/// Replaces every occurrence in one pass; what a replacement makes is not looked at again.
[[nodiscard]] QString Sostituisci(const QString& Testo, const QString& Cercato, const QString& Nuovo);

/// False when the name holds a forbidden character; an empty list means \ / : * ? < > " and |.
[[nodiscard]] bool NomeValido(const QString& Nome, const QString& Vietati = {});

/// The name with "-" for each of those characters and for controls, which no file's name may hold, and before
/// a name that means a folder or a device.
[[nodiscard]] QString NomePerFile(QString Nome);

/// One line of what may be shown: what breaks lines or turns the direction of writing is a blank, half a
/// character goes. A longer one is cut between two characters and ends in "…".
/// @param Massimo units of the line, 2 or more
[[nodiscard]] QString UnaRiga(const QString& Testo, qsizetype Massimo);

/// True for Null, an empty or blank text, the texts "0" and "/  /" after trimming, a numeric zero and an
/// invalid date: a column that holds nothing.
[[nodiscard]] bool EVuoto(const QVariant& Valore);
