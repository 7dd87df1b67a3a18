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

/// Refuses a destination that is a fee note or an archive, or has the name of one: no list or document takes
/// its place, even where a shell's pattern has put it there. @throws Errore 58, 75
void ControllaUscita(const QString& File);

/// Cells of an answer on one line, joined by "|": breaks of lines, as names of files may have them, are
/// spaces, so that scripts count lines and cells.
[[nodiscard]] QString CelleInRiga(QStringList Celle);

/// A day as the commands write it, "dd/mm/yyyy".
[[nodiscard]] QString Giorno(const QDate& Data);

/// @throws Errore 5 with the message of what a check has found missing
template <class Campo>
void RifiutaMancanza(const std::optional<Mancanza<Campo>>& Trovato)
{
    if (Trovato)
        throw Errore(errori::Argomento, Trovato->Messaggio);
}
