// Values of a command line, read with refusals that name them.
#pragma once

#include "core/mancanza.h"
#include "platform/base/errore.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

/// @throws Errore 13, 6; the description names the value
[[nodiscard]] double Numero(const QString& Nome, const QString& Valore);
/// The same; an empty value is 0.
[[nodiscard]] double NumeroOZero(const QString& Nome, const QString& Valore);
/// "0" or "1"; an empty value is `Vuoto`. @throws Errore 13
[[nodiscard]] bool LeggiBit(const QString& Nome, const QString& Valore, bool Vuoto = false);
/// Position of a word in a list, whatever its case. @throws Errore 5 with the words to choose from
[[nodiscard]] int LeggiParola(const QString& Nome, const QString& Valore, const QStringList& Parole);

/// A day as the commands write it, "dd/mm/yyyy".
[[nodiscard]] QString Giorno(const QDate& Data);

/// @throws Errore 5 with the message of what a check has found missing
template <class Campo>
void RifiutaMancanza(const std::optional<Mancanza<Campo>>& Trovato)
{
    if (Trovato)
        throw Errore(errori::Argomento, Trovato->Messaggio);
}
