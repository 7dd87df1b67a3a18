// Values of a command line, read with refusals that name them.
#pragma once

#include <QString>
#include <QStringList>

/// @throws Errore 13, 6; the description names the value
[[nodiscard]] double Numero(const QString& Nome, const QString& Valore);
/// The same; an empty value is 0.
[[nodiscard]] double NumeroOZero(const QString& Nome, const QString& Valore);
/// "0" or "1"; an empty value is `Vuoto`. @throws Errore 13
[[nodiscard]] bool LeggiBit(const QString& Nome, const QString& Valore, bool Vuoto = false);
/// Position of a word in a list, whatever its case. @throws Errore 5 with the words to choose from
[[nodiscard]] int LeggiParola(const QString& Nome, const QString& Valore, const QStringList& Parole);
