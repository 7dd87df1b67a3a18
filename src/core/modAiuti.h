// Helpers kept for what other programs and later windows call.
#pragma once

#include <QList>
#include <QString>
#include <QVariant>

#include <utility>

struct VersioneSistema;

/// LireEuro as text, pattern "#,##0.00".
[[nodiscard]] QString LireEuroFormattato(double Lire);

/// First character upper case, the rest lower case.
[[nodiscard]] QString PrimaMaiuscola(const QString& Testo);

/// Position of the last occurrence counted from 1, 0 when there is none or nothing is sought.
[[nodiscard]] int PosUltima(const QString& Testo, const QString& Cercato);

/// The greater and the lesser; a tie gives the first. Numbers compare as numbers, dates as dates, all
/// other pairs as text.
[[nodiscard]] QVariant Massimo(const QVariant& Primo, const QVariant& Secondo);
[[nodiscard]] QVariant Minimo(const QVariant& Primo, const QVariant& Secondo);

/// "a=b,c=d" cut at commas, each piece at its first "="; empty pieces are skipped, one without "=" has
/// an empty value; at most 100 pairs, the rest is left out.
[[nodiscard]] QList<std::pair<QString, QString>> ParseCoppie(const QString& Testo);

/// 1 Windows 95, 2 98, 3 Me, 4 NT up to 4, 5 2000, 6 XP, 7 version 6 (Vista and later), 0 anything else.
[[nodiscard]] int VersioneWindows();
[[nodiscard]] int VersioneWindows(const VersioneSistema& Sistema);
