// Another program for a test: the test itself, run a second time in one of its parts.
//
// The two know each other by a folder that both work in; they wait for each other by files in it, never by
// time. The class that uses it has a function `lAltro`, which does nothing without a part.
#pragma once

#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTest>

#include <csignal>

class AltroProgramma
{
public:
    /// @param Classe this class of tests
    /// @param Nome the part
    /// @param Insieme the folder of both, with the separator at its end
    AltroProgramma(const QString& Classe, const QString& Nome, const QString& Insieme)
    {
        QProcessEnvironment Ambiente = QProcessEnvironment::systemEnvironment();
        Ambiente.insert(QString::fromLatin1(VariabileParte), Nome);
        Ambiente.insert(QString::fromLatin1(VariabileCartella), Insieme);
        Ambiente.insert(QStringLiteral("TMPDIR"), NuovaCartella());  // killed, it tidies nothing up
        Programma.setProcessEnvironment(Ambiente);
        Programma.setStandardOutputFile(QProcess::nullDevice());
        Programma.start(QCoreApplication::applicationFilePath(), {Classe, QStringLiteral("lAltro")});
    }
    ~AltroProgramma() { Uccidi(); }
    AltroProgramma(const AltroProgramma&) = delete;
    AltroProgramma& operator=(const AltroProgramma&) = delete;

    void Uccidi()
    {
        if (Programma.state() == QProcess::NotRunning)
            return;
        ::kill(pid_t(Programma.processId()), SIGKILL);
        Programma.waitForFinished();
    }
    /// Waits for its end. @return true when none of its checks has failed
    [[nodiscard]] bool Finito()
    {
        // One whose end has been noticed already is not waited for.
        const bool Finita = Programma.state() == QProcess::NotRunning || Programma.waitForFinished(Attesa);
        return Finita && Programma.error() != QProcess::FailedToStart &&
               Programma.exitStatus() == QProcess::NormalExit && Programma.exitCode() == 0;
    }

    /// In the other program its part; empty in the first one.
    [[nodiscard]] static QString Parte() { return qEnvironmentVariable(VariabileParte); }
    /// In the other program the folder of both.
    [[nodiscard]] static QString Cartella() { return qEnvironmentVariable(VariabileCartella); }

    /// Tells whoever waits for this file.
    static void Segnala(const QString& File) { ScriviFile(File, "x"); }
    /// @return false when it did not come in time
    [[nodiscard]] static bool Aspetta(const QString& File)
    {
        return QTest::qWaitFor([&] { return QFile::exists(File); }, Attesa);
    }

private:
    static constexpr auto VariabileParte = "CALCANOVA_PROVA_PARTE";
    static constexpr auto VariabileCartella = "CALCANOVA_PROVA_CARTELLA";
    static constexpr int Attesa = 20000;

    QProcess Programma;
};
