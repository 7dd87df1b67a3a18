// A picture of the window in use, and what every window must hold to.
#pragma once

#include "programma.h"

#include <QFile>

#include <memory>

/// Letters of twice the size leave half a screen: there a page may scroll sideways, in a window that fits.
[[nodiscard]] inline bool PuoScorrereDiLato()
{
    constexpr double Disegno = 10;
    constexpr double Oltre = 1.5;
    const QByteArray Corpo = qgetenv("CALCANOVA_CORPO");
    return qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble() *
               (Corpo.isEmpty() ? 1 : Corpo.toDouble() / Disegno) >
           Oltre;
}

/// The name of a picture: those of several scales and looks stand side by side.
[[nodiscard]] inline QString NomeSchermata(const QString& Nome)
{
    return Nome + u'@' + qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")) +
           (qEnvironmentVariableIsSet("CALCANOVA_SCURO") ? QStringLiteral("_scuro") : QString()) +
           (qEnvironmentVariableIsSet("CALCANOVA_CORPO") ? QStringLiteral("_grande") : QString());
}

/// Takes the picture, and asks what every window must hold to: within the screen, with room for its words.
inline void GuardaSchermata(Programma& P, const QString& Nome)
{
    P.Fotografa(NomeSchermata(Nome));
    const QRect Finestra = P.Posto(P.Chiedi(QStringLiteral("finestra")));
    constexpr QRect Schermo(0, 0, 1366 + 1,
                            768 + 1);  // the toolkit rounds a magnified screen to whole points
    constexpr int Titolare = 12;       // of the title there must be something to take hold of
    QVERIFY2(Schermo.contains(Finestra.adjusted(0, -Titolare, 0, 0)),
             qPrintable(QStringLiteral("%1,%2 %3x%4")
                            .arg(Finestra.x())
                            .arg(Finestra.y())
                            .arg(Finestra.width())
                            .arg(Finestra.height())));
    QCOMPARE(P.Chiedi(QStringLiteral("tagliati")), QString());
    if (!PuoScorrereDiLato())
        QCOMPARE(P.Chiedi(QStringLiteral("larghe")), QString());
}

/// The program with a saved note of the examples open in it, made in a folder.
inline void ApriEsempio(std::unique_ptr<Programma>& P, const QString& Cartella, const QString& Quale)
{
    const QString File = Cartella + u'/' + Quale + QStringLiteral(".mdb");
    QProcess Altro;
    Altro.start(qEnvironmentVariable("CALCANOVA_CARTELLA") + QStringLiteral("/calcanova-cli"),
                {QStringLiteral("crea"),
                 SorgenteDiProva(QStringLiteral("dati/esempi/") + Quale + QStringLiteral(".json")), File});
    QVERIFY(Altro.waitForFinished(30000));
    QVERIFY2(QFile::exists(File), Altro.readAllStandardError());
    P = std::make_unique<Programma>(QStringList{QStringLiteral("PV2|E|") + File});
    ATTENDI_CHE(P->Chiedi(QStringLiteral("attiva")).contains(u'|' + Quale));
    QVERIFY2(P->Aperta(Quale), qPrintable(P->Stato()));
}
