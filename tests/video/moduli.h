// The windows that the suite goes through, and how the keyboard opens them from the frame of the notes.
#pragma once

#include "programma.h"

#include "calculators/calcolatrici.h"

#include <iterator>

struct Modulo
{
    const char* Nome;    ///< of the picture and of the file of its focus order
    const char* Tasti;   ///< as the display server names them
    const char* Titolo;  ///< how its title begins
};

inline constexpr Modulo Calcolatrici[] = {
    {"termini", "ctrl+shift+t", "Calcanova - Computo termini"},
    {"sequenziali", "ctrl+shift+s", "Calcolo dei termini sequenziali"},
    {"interessi", "ctrl+shift+i", "Calcolo interessi"},
    {"istat", "ctrl+shift+v", "Calcolo rivalutazione Istat"},
    {"codfis", "ctrl+shift+f", "Calcolo del codice fiscale"},
    {"contributo", "ctrl+shift+c", "Calcolo contributo unificato"},
};
static_assert(std::size(Calcolatrici) == TabellaCalcolatrici.size());

inline constexpr Modulo Impostazioni{"impostazioni", "ctrl+shift+p",
                                     "Calcanova - Personalizzazione programma"};
inline constexpr Modulo Trova{"trova", "ctrl+o", "Apri da parcelle salvate"};
inline constexpr Modulo ElencoDocumenti{"documenti", "ctrl+shift+d", "Documentazione normativa"};
/// No key opens it: the icon of the desktop does, and Yes to the question of a calculation.
inline constexpr Modulo Aggiornamento{"aggiornamento", "", "Aggiornamento programma ed archivi"};
inline constexpr const char* IconaAggiornamento = "imgMenu_13";

/// Rows of every window that a key opens.
inline void RigheModuli()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Tasti");
    QTest::addColumn<QString>("Titolo");
    const auto Aggiungi = [](const Modulo& Finestra) {
        QTest::newRow(Finestra.Nome) << QString::fromUtf8(Finestra.Nome) << QString::fromUtf8(Finestra.Tasti)
                                     << QString::fromUtf8(Finestra.Titolo);
    };
    for (const Modulo& Calcolo : Calcolatrici)
        Aggiungi(Calcolo);
    Aggiungi(Impostazioni);
    Aggiungi(Trova);
    Aggiungi(ElencoDocumenti);
}

struct SchedaParcella
{
    const char* Nome;    ///< of pictures and files
    const char* Titolo;  ///< on its tab
};

inline constexpr SchedaParcella SchedeParcella[] = {
    {"datibase", "Dati base"},        {"onorari", "Onorari"}, {"spese", "Spese inserite"},
    {"acconti", "Acconti e imposte"}, {"stampa", "Stampa"},
};

/// Rows of the tabs of a note.
inline void RigheSchede()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Titolo");
    for (const SchedaParcella& Scheda : SchedeParcella)
        QTest::newRow(Scheda.Nome) << QString::fromUtf8(Scheda.Nome) << QString::fromUtf8(Scheda.Titolo);
}

/// Rows of the tabs of the settings behind the first, which comes up with the window.
inline void RigheImpostazioni()
{
    QTest::addColumn<QString>("Nome");
    QTest::addColumn<QString>("Titolo");
    QTest::newRow("contabili") << QStringLiteral("contabili") << QStringLiteral("Dati contabili");
    QTest::newRow("setup") << QStringLiteral("setup") << QStringLiteral("Setup");
    QTest::newRow("desktop") << QStringLiteral("desktop") << QStringLiteral("Personalizza desktop");
    QTest::newRow("fattura") << QStringLiteral("fattura") << QStringLiteral("Fattura elettronica");
    QTest::newRow("documenti") << QStringLiteral("documenti") << QStringLiteral("Documenti");
}
