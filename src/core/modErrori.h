// The uniform error report and the label around procedures.
#pragma once

#include <QString>

#include <utility>

struct Errore;

/// Reports a failure the one way: "Errore: " + description + " (" + number + ")", critical, title
/// "Errore:"; the pointer goes back to normal in every case.
///
/// @param Ignora the number that the caller means to ignore, 0 none
/// @return true when a message was shown; number 0, the ignored one and a repetition that RapportiUnici
///         holds back show nothing
bool GestioneErrori(const Errore& Guasto, int Ignora = 0);
/// Inside a catch block: reports the exception in flight.
bool RiferisciCorrente(int Ignora);

/// Message box with a critical icon and the title "Errore:".
void MsgErrore(const QString& Testo);

/// The label around a procedure: runs it, and on a failure reports it and lets the caller go on.
/// @return true when the procedure ran to its end
template <class F>
bool Protetta(F&& Procedura, int Ignora = 0)
{
    try {
        std::forward<F>(Procedura)();
        return true;
    } catch (...) {
        RiferisciCorrente(Ignora);
        return false;
    }
}

/// What the system answered to an opener. @throws Errore of that number, unless it is 0
void VerificaEsito(int Esito);

/// Appends "- " + message to the debug trace (a line break follows from the second entry on) and shows
/// it. Callers test sessione::ModoDebug first.
void TraceDebug(const QString& Messaggio);
