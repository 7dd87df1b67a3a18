// A new mail in the user's mail program: the one place that knows by which command this system opens it.
#pragma once

#include <QString>

#include <functional>

/// What stands in a mail when it opens; what is empty is left to the user.
struct MessaggioNuovo
{
    QString Indirizzo;  ///< by its form; see EIndirizzo of feenote/modLettera.h
    QString Oggetto;
    QString Testo;
    QString Allegato;  ///< path of a file
};

/// What keeps a mail with this file from being opened here, a sentence for the user; empty: nothing is known
/// to.
[[nodiscard]] QString ImpedimentoPosta(const QString& Allegato);

/// Opens a mail, without a shell in between: each text is one argument.
/// @param AllaFine gets the status with which the command has ended, 0 when the mail program has taken the
/// mail; not called where it does not start
/// @return whether it has started
[[nodiscard]] bool ApriMessaggio(const MessaggioNuovo& Nuovo, std::function<void(int Esito)> AllaFine);
