// The program itself, as a desktop would start it.
#pragma once

#include "supporto/prova.h"

#include <QMap>
#include <QProcess>

/// A process of the program, offscreen, ended with the object. What it says on its error stream is kept.
class ProgrammaVero
{
public:
    /// @param Ambiente changes of the environment; a null text takes a variable away
    /// @param Programma its folder
    explicit ProgrammaVero(const QStringList& Argomenti, const QMap<QString, QString>& Ambiente = {},
                           const QString& Cartella = {}, const QString& Programma = ProgrammaDiProva())
    {
        QProcessEnvironment Suo = QProcessEnvironment::systemEnvironment();
        Suo.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        for (const auto& [Nome, Valore] : Ambiente.asKeyValueRange())
            Valore.isNull() ? Suo.remove(Nome) : Suo.insert(Nome, Valore);
        Processo.setProcessEnvironment(Suo);
        if (!Cartella.isEmpty())
            Processo.setWorkingDirectory(Cartella);
        Processo.start(Programma + QStringLiteral("calcanova"), Argomenti);
    }
    ~ProgrammaVero()
    {
        if (Processo.state() == QProcess::NotRunning)
            return;
        Processo.kill();
        Processo.waitForFinished();
    }
    ProgrammaVero(const ProgrammaVero&) = delete;
    ProgrammaVero& operator=(const ProgrammaVero&) = delete;

    [[nodiscard]] bool Finito() const { return Processo.state() == QProcess::NotRunning; }
    /// It has come to its end by itself, as one that has nothing more to do.
    [[nodiscard]] bool FinitoBene() const
    {
        return Finito() && Processo.exitStatus() == QProcess::NormalExit && Processo.exitCode() == 0;
    }

    QProcess Processo;
};
