// The windows that the suite goes through, and how the keyboard opens them from the frame of the notes.
#pragma once

#include "programma.h"

#include "calculators/calcolatrici.h"
#include "core/comandi.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <vector>

struct Modulo
{
    QByteArray Nome;    ///< of the picture and of the file of its focus order
    QByteArray Tasti;   ///< as the display server names them
    QByteArray Titolo;  ///< how its title begins
};

/// The calculators in their order: the command line's name, the keys of the command, the title as it is
/// drawn.
inline const std::vector<Modulo>& Calcolatrici()
{
    static const std::vector<Modulo> Tutte = [] {
        static const QRegularExpression Scritto(QStringLiteral("name=\"windowTitle\"><string>([^<(]*)"));
        std::vector<Modulo> Fatte;
        for (const NomiCalcolatrice& Una : TabellaCalcolatrici) {
            const auto Riga = std::ranges::find(Comandi(), Una.Comando, &Comando::Parola);
            QFile Modello(
                SorgenteDiProva(QStringLiteral("src/calculators/windows/%1.ui").arg(Riga->Finestra)));
            if (!Modello.open(QIODevice::ReadOnly))
                qFatal("%s", qPrintable(Modello.fileName()));
            const auto Titolo = Scritto.match(QString::fromUtf8(Modello.readAll()));
            Fatte.push_back(
                {Una.DaRiga.toUtf8(), Riga->Tasti.toUtf8().toLower(), Titolo.captured(1).trimmed().toUtf8()});
        }
        return Fatte;
    }();
    return Tutte;
}

/// The icon of a command on the desktop.
inline QString IconaDi(QStringView Parola)
{
    const auto Icone = ComandiDellaScrivania();
    return QStringLiteral("imgMenu_%1")
        .arg(std::ranges::find(Icone, Parola, &Comando::Parola) - Icone.begin());
}

inline const Modulo Impostazioni{"impostazioni", "ctrl+shift+p", "Calcanova - Personalizzazione programma"};
inline const Modulo Trova{"trova", "ctrl+o", "Apri da parcelle salvate"};
inline const Modulo ElencoDocumenti{"documenti", "ctrl+shift+d", "Documentazione normativa"};
/// No key opens it: the icon of the desktop does, and Yes to the question of a calculation.
inline const Modulo Aggiornamento{"aggiornamento", "", "Aggiornamento programma ed archivi"};
inline QString IconaAggiornamento()
{
    return IconaDi(u"upgrade");
}

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
    for (const Modulo& Calcolo : Calcolatrici())
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
