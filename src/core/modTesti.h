// Helpers for texts, numbers and dates that the whole program shares.
#pragma once

#include "platform/base/regionale.h"
#include "platform/system/percorsi.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QVariant>

#include <utility>

struct VersioneSistema;

/// Lire into euro at the fixed rate 1936.27 (Reg. CE 2866/98), rounded to 2 decimals, ties to even.
[[nodiscard]] double LireEuro(double Lire);
/// The same as text, pattern "#,##0.00".
[[nodiscard]] QString LireEuroFormattato(double Lire);

/// "Lunedì,  24 Settembre  2012": two blanks before day and year, the place of their sign; empty for no date.
[[nodiscard]] QString DataLunga(const QDate& Data);

/// First character upper case, the rest lower case.
[[nodiscard]] QString PrimaMaiuscola(const QString& Testo);

/// Position of the last occurrence counted from 1, 0 when there is none or nothing is sought.
[[nodiscard]] int PosUltima(const QString& Testo, const QString& Cercato);

/// Replaces every occurrence in one pass; what a replacement makes is not looked at again.
[[nodiscard]] QString Sostituisci(const QString& Testo, const QString& Cercato, const QString& Nuovo);

/// The greater and the lesser; a tie gives the first. Numbers compare as numbers, dates as dates, all
/// other pairs as text.
[[nodiscard]] QVariant Massimo(const QVariant& Primo, const QVariant& Secondo);
[[nodiscard]] QVariant Minimo(const QVariant& Primo, const QVariant& Secondo);

/// False when the name holds a forbidden character; an empty list means \ / : * ? < > " and |.
[[nodiscard]] bool NomeValido(const QString& Nome, const QString& Vietati = {});

/// The name with "-" for each of those characters, which no file's name may hold.
[[nodiscard]] QString NomePerFile(QString Nome);

/// True for Null, an empty or blank text, the texts "0" and "/  /" after trimming, a numeric zero and an
/// invalid date: a column that holds nothing.
[[nodiscard]] bool EVuoto(const QVariant& Valore);

/// "a=b,c=d" cut at commas, each piece at its first "="; empty pieces are skipped, one without "=" has
/// an empty value; at most 100 pairs, the rest is left out.
[[nodiscard]] QList<std::pair<QString, QString>> ParseCoppie(const QString& Testo);

/// 1 Windows 95, 2 98, 3 Me, 4 NT up to 4, 5 2000, 6 XP, 7 version 6 (Vista and later), 0 anything else.
[[nodiscard]] int VersioneWindows();
[[nodiscard]] int VersioneWindows(const VersioneSistema& Sistema);
