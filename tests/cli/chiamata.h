// calcanova-cli called in the process of the test.
#pragma once

#include "cli/comandi.h"
#include "supporto/prova.h"

/// What a call left.
struct Esito
{
    int Stato = 0;
    QString Uscita;
    QString Guasti;
};

/// Runs a command line of the program as built, with the lines given on standard input.
inline Esito Chiama(const QStringList& Argomenti, const QByteArrayList& Ingresso = {})
{
    Esito Risultato;
    QByteArray Uscita;
    QByteArray Guasti;
    qsizetype Riga = 0;
    const auto Prossima = [&] { return Riga < Ingresso.size() ? Ingresso[Riga++] : QByteArray(); };
    QStringList Tutti{QStringLiteral("--programma"), ProgrammaDiProva()};
    Risultato.Stato = EseguiCli(
        Tutti + Argomenti, Prossima, [&](const QByteArray& Testo) { Uscita += Testo; },
        [&](const QByteArray& Testo) { Guasti += Testo; });
    Risultato.Uscita = QString::fromUtf8(Uscita);
    Risultato.Guasti = QString::fromUtf8(Guasti);
    return Risultato;
}
