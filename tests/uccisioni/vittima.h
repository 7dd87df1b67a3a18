// Programs to be killed: behind one of their calls, or at a moment drawn at random.
#pragma once

#include "supporto/prova.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

/// What is killed.
class Uccidibile
{
public:
    Uccidibile() = default;
    virtual ~Uccidibile() = default;
    Uccidibile(const Uccidibile&) = delete;
    Uccidibile& operator=(const Uccidibile&) = delete;

    /// @return false when it had to be stopped
    [[nodiscard]] virtual bool AspettaLaFine() = 0;
    /// Waits for a moment of its life. @return true when it had ended by then
    [[nodiscard]] virtual bool FinitaEntro(qint64 Microsecondi) = 0;
    virtual void Uccidi() = 0;
};

/// A copy of this process that does one thing: killed like a program, without the time that one takes to
/// start.
class Figlio : public Uccidibile
{
public:
    template <class F>
    explicit Figlio(F&& Fai) : Numero(::fork())
    {
        if (Numero != 0)
            return;
        try {
            Fai();
        } catch (...) {
            ::_exit(1);
        }
        ::_exit(0);
    }
    ~Figlio() override { Figlio::Uccidi(); }

    bool AspettaLaFine() override
    {
        int Stato = 0;
        const bool Bene =
            ::waitpid(Numero, &Stato, 0) == Numero && WIFEXITED(Stato) && WEXITSTATUS(Stato) == 0;
        Numero = -1;
        return Bene;
    }
    bool FinitaEntro(qint64 Microsecondi) override
    {
        ::usleep(useconds_t(Microsecondi));
        int Stato = 0;
        if (::waitpid(Numero, &Stato, WNOHANG) != Numero)
            return false;
        Numero = -1;
        return true;
    }
    void Uccidi() override
    {
        if (Numero <= 0)
            return;
        ::kill(Numero, SIGKILL);
        ::waitpid(Numero, nullptr, 0);
        Numero = -1;
    }

private:
    pid_t Numero;
};

/// A program.
class Vittima : public Uccidibile
{
public:
    /// @param Cartella the folder whose calls count, without a separator at its end
    /// @param Contate where the calls are counted
    /// @param Alla the call behind which the program dies; 0 it lives
    Vittima(const QString& Cartella, const QString& Contate, int Alla)
    {
        Intorno.insert(QStringLiteral("LD_PRELOAD"), QStringLiteral(MODULO_MORTE));
        // The sanitizers want to be loaded first.
        Intorno.insert(QStringLiteral("ASAN_OPTIONS"), Intorno.value(QStringLiteral("ASAN_OPTIONS")) +
                                                           QStringLiteral(":verify_asan_link_order=0"));
        Intorno.insert(QStringLiteral("MORTE_SOTTO"), Cartella);
        Intorno.insert(QStringLiteral("MORTE_ALLA"), QString::number(Alla));
        Intorno.insert(QStringLiteral("MORTE_CONTA"), Contate);
    }
    /// One that is killed from outside.
    Vittima() = default;
    ~Vittima() override { Vittima::Uccidi(); }

    void Con(const QString& Nome, const QString& Valore) { Intorno.insert(Nome, Valore); }
    void Avvia(const QString& Programma, const QStringList& Argomenti)
    {
        Processo.setProcessEnvironment(Intorno);
        Processo.start(Programma, Argomenti);
        Processo.waitForStarted(Attesa);
    }
    bool AspettaLaFine() override { return Processo.waitForFinished(Attesa); }
    bool FinitaEntro(qint64 Microsecondi) override
    {
        return Processo.waitForFinished(int(Microsecondi / 1000)) || !Vive();
    }
    void Uccidi() override
    {
        if (Processo.state() == QProcess::NotRunning)
            return;
        ::kill(pid_t(Processo.processId()), SIGKILL);
        Processo.waitForFinished(Attesa);
    }
    [[nodiscard]] bool Vive() const { return Processo.state() != QProcess::NotRunning; }
    [[nodiscard]] bool Uccisa() const { return Processo.exitStatus() == QProcess::CrashExit; }
    [[nodiscard]] bool Riuscita() const
    {
        return Processo.exitStatus() == QProcess::NormalExit && Processo.exitCode() == 0;
    }
    [[nodiscard]] QByteArray Detto()
    {
        return Processo.readAllStandardError() + Processo.readAllStandardOutput();
    }

private:
    static constexpr int Attesa = 30000;

    QProcessEnvironment Intorno = QProcessEnvironment::systemEnvironment();
    QProcess Processo;
};

/// What a killed program may cost the next one, in milliseconds beyond what that takes by itself: a lock that
/// nobody has signed yet is waited for, a second, and nothing else is. Three seconds, for which a save waits
/// for a living program, are far off.
inline constexpr qint64 MassimaAttesaMs = 2000;

/// What a victim that was told where has counted.
inline int Contate(const QString& File)
{
    QFile Letto(File);
    int Quante = 0;
    if (Letto.open(QIODevice::ReadOnly) &&
        Letto.read(reinterpret_cast<char*>(&Quante), sizeof Quante) != sizeof Quante)
        qFatal("calls that nobody counts");
    return Quante;
}

/// How many kills are asked for; 0 in an ordinary run, which makes a few.
inline int UccisioniChieste()
{
    return qEnvironmentVariableIntValue("CALCANOVA_UCCISIONI");
}

/// The seed of the moments: always the same in an ordinary run, otherwise drawn, or the one that is given.
inline quint32 Seme()
{
    static const quint32 Estratto = qEnvironmentVariableIsSet("CALCANOVA_SEME")
                                        ? qEnvironmentVariable("CALCANOVA_SEME").toUInt()
                                    : UccisioniChieste() > 0 ? QRandomGenerator::system()->generate()
                                                             : 0;
    return Estratto;
}
