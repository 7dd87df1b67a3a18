#include "platform/accesso/lettore.h"

#include "platform/base/errore.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void Manca()
{
    throw Errore(errori::NessunProgramma,
                 u"I file di Access si leggono con calcanova-accesso, che manca accanto al programma: "
                 "reinstallare il programma"_s);
}

/// No honest answer is longer: a thousand tables with their names.
constexpr qsizetype MassimaRisposta = qsizetype(8) << 20;

}  // namespace

#ifdef Q_OS_UNIX

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

namespace {

/// A descriptor that no other program started from here gets.
bool Riserva(int Descrittore)
{
    return ::fcntl(Descrittore, F_SETFD, FD_CLOEXEC) == 0;
}

void Chiudi(int& Descrittore)
{
    if (Descrittore >= 0)
        ::close(Descrittore);
    Descrittore = -1;
}

/// Two ends of a socket: a program that has ended is an error of the write there, and no signal.
bool Coppia(int& Mia, int& Altrui)
{
    std::array<int, 2> Capi{-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, Capi.data()) != 0)
        return false;
    Mia = Capi[0];
    Altrui = Capi[1];
    return Riserva(Mia) && Riserva(Altrui);
}

}  // namespace

Lettore::Lettore(const QString& Programma)
{
    if (!QFileInfo(Programma).isExecutable())
        Manca();
    int Ingresso = -1;
    int Uscita = -1;
    if (!Coppia(Verso, Ingresso) || !Coppia(Da, Uscita)) {
        for (int* Capo : {&Verso, &Da, &Ingresso, &Uscita})
            Chiudi(*Capo);
        throw Errore(errori::Memoria);
    }
    posix_spawn_file_actions_t Azioni;
    posix_spawn_file_actions_init(&Azioni);
    posix_spawn_file_actions_adddup2(&Azioni, Ingresso, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&Azioni, Uscita, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&Azioni, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    QByteArray Nome = QFile::encodeName(Programma);
    std::array<char*, 2> Argomenti{Nome.data(), nullptr};
    // Nothing of the caller's surroundings changes what is read from a file.
    QByteArray Lingua("LC_ALL=C.UTF-8");
    std::array<char*, 2> Ambiente{Lingua.data(), nullptr};
    pid_t Nuovo = -1;
    const int Esito =
        ::posix_spawn(&Nuovo, Nome.constData(), &Azioni, nullptr, Argomenti.data(), Ambiente.data());
    posix_spawn_file_actions_destroy(&Azioni);
    Chiudi(Ingresso);
    Chiudi(Uscita);
    if (Esito != 0) {
        Chiudi(Verso);
        Chiudi(Da);
        Manca();
    }
    Processo = Nuovo;
}

Lettore::~Lettore()
{
    Uccidi();
}

void Lettore::Uccidi() noexcept
{
    Chiudi(Verso);
    Chiudi(Da);
    if (Processo <= 0)
        return;
    ::kill(Processo, SIGKILL);
    while (::waitpid(Processo, nullptr, 0) < 0 && errno == EINTR)
        continue;
    Processo = -1;
}

bool Lettore::Scrivi(QByteArrayView Domanda) const
{
    while (!Domanda.isEmpty()) {
        const ssize_t Scritti = ::send(Verso, Domanda.data(), size_t(Domanda.size()), MSG_NOSIGNAL);
        if (Scritti < 0 && errno == EINTR)
            continue;
        if (Scritti <= 0)
            return false;
        Domanda = Domanda.sliced(Scritti);
    }
    return true;
}

Lettore::Fine Lettore::Chiedi(const QByteArray& Domanda, int AttesaMs,
                              const std::function<bool(QByteArrayView Riga)>& Ultima,
                              const std::function<bool()>& Avanza)
{
    constexpr int PassoMs = 100;
    const QDeadlineTimer Scadenza(AttesaMs);
    const auto Finisci = [this](Fine Come) {
        Uccidi();
        return Come;
    };
    if (Processo <= 0 || !Scrivi(Domanda))
        return Finisci(Fine::Morto);
    for (;;) {
        for (qsizetype A = Resto.indexOf('\n'); A >= 0; A = Resto.indexOf('\n')) {
            Letta = Resto.first(A);
            Resto.remove(0, A + 1);
            if (Ultima(Letta))
                return Fine::Risposta;
        }
        if (!Avanza())
            return Finisci(Fine::Fermata);
        if (Scadenza.hasExpired() || Resto.size() > MassimaRisposta)
            return Finisci(Fine::Scaduta);
        pollfd Attesa{Da, POLLIN, 0};
        const int Pronti = ::poll(&Attesa, 1, int(std::min<qint64>(PassoMs, Scadenza.remainingTime() + 1)));
        if (Pronti <= 0)
            continue;
        std::array<char, 16384> Pezzo{};
        const ssize_t Avuti = ::recv(Da, Pezzo.data(), Pezzo.size(), 0);
        if (Avuti < 0 && errno == EINTR)
            continue;
        if (Avuti <= 0)
            return Finisci(Fine::Morto);
        Resto.append(Pezzo.data(), Avuti);
    }
}

#else

Lettore::Lettore(const QString&)
{
    Manca();
}

Lettore::~Lettore() = default;

void Lettore::Uccidi() noexcept
{}

bool Lettore::Scrivi(QByteArrayView) const
{
    return false;
}

Lettore::Fine Lettore::Chiedi(const QByteArray&, int, const std::function<bool(QByteArrayView)>&,
                              const std::function<bool()>&)
{
    return Fine::Morto;
}

#endif
