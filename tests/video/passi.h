// The steps that lead to a window, as a row of a table has them.
#pragma once

#include "programma.h"
#include "studiocompleto.h"

/// A step: a verb and what it is about. Any other verb is a question, and what it is about the answer that is
/// waited for.
/// @return false where it stops
[[nodiscard]] inline bool Passo(Programma& P, const QString& Uno)
{
    const QString Verbo = Uno.section(u' ', 0, 0);
    const QString Cosa = Uno.section(u' ', 1);
    if (Verbo == u"scrivania")
        return P.Aperta(QStringLiteral("Calcanova 3"));
    if (Verbo == u"nota")
        return P.NuovaParcella();
    if (Verbo == u"compila")
        return P.CompilaDatiBase();
    if (Verbo == u"scheda")
        return P.AllaScheda(Cosa);
    if (Verbo == u"impostazioni")
        return P.AlleImpostazioni(Cosa);
    if (Verbo == u"fattura")
        return FinoAllaFattura(P);
    if (Verbo == u"vai")
        return P.VaiA(Cosa);
    if (Verbo == u"aperta")
        return P.Attendi(QStringLiteral("attiva"),
                         [&Cosa](const QString& Titolo) { return Titolo.startsWith(Cosa); });
    if (Verbo == u"vede")
        return P.Attendi(QStringLiteral("visto ") + Cosa,
                         [](const QString& Visto) { return !Visto.isEmpty(); });
    if (Verbo == u"tendina")
        return P.Attendi(QStringLiteral("popup"), [](const QString& Aperta) { return !Aperta.isEmpty(); });
    if (Verbo == u"dice")
        return P.Attendi(QStringLiteral("messaggio"),
                         [&Cosa](const QString& Testo) { return Testo.contains(Cosa); });
    if (Verbo == u"premi")
        P.Premi(Cosa.split(u' '));
    else if (Verbo == u"digita")
        P.Digita(QString(Cosa).replace(QStringLiteral("$CASA"), P.Casa()));
    else if (Verbo == u"clic")
        P.Clic(Cosa);
    else
        return P.Attendi(Verbo, [&Cosa](const QString& Risposta) { return Risposta == Cosa; });
    return !QTest::currentTestFailed();
}
