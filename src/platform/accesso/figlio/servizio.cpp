#include "platform/accesso/figlio/servizio.h"

#include "platform/accesso/figlio/conversione.h"
#include "platform/accesso/figlio/limiti.h"
#include "platform/base/errore.h"
#include "platform/base/regionale.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QJsonDocument>

#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

using namespace Qt::StringLiterals;

namespace {

constexpr int MassimiSecondi = 120;
constexpr qsizetype MassimaRichiesta = qsizetype(64) << 10;
constexpr qsizetype MassimaRisposta = qsizetype(4) << 20;

struct Richiesta
{
    QString Da;
    QString A;
    int Secondi = 0;
};

QByteArray Riga(const QJsonObject& Oggetto)
{
    return QJsonDocument(Oggetto).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray RigaErrore(int Numero, const QString& Descrizione)
{
    return Riga({{u"errore"_s, Numero}, {u"descrizione"_s, Descrizione}});
}

bool Scrivi(int Uscita, QByteArrayView Byte)
{
    while (!Byte.isEmpty()) {
        const ssize_t Scritti = ::write(Uscita, Byte.data(), size_t(Byte.size()));
        if (Scritti < 0 && errno == EINTR)
            continue;
        if (Scritti <= 0)
            return false;
        Byte = Byte.sliced(Scritti);
    }
    return true;
}

/// What a request may make of a small file: a copy is larger than its file, but not without end.
qint64 MassimoScritto(const QString& File)
{
    constexpr qint64 Base = qint64(256) << 20;
    constexpr qint64 Volte = 4;
    return Base + Volte * QFileInfo(File).size();
}

QByteArray Esegui(const Richiesta& Cosa, int Uscita)
{
    try {
        return Riga(CopiaTutto(Cosa.Da, Cosa.A, ChiudiPorte, [Uscita](qint64 Righe) {
            (void)Scrivi(Uscita, Riga({{u"avanzate"_s, Righe}}));
        }));
    } catch (...) {
        const Errore Guasto = ErroreCorrente();
        return RigaErrore(Guasto.Numero, Guasto.Descrizione);
    }
}

std::optional<Richiesta> LeggiRichiesta(QByteArrayView Linea)
{
    const QJsonObject Letta = QJsonDocument::fromJson(Linea.toByteArray()).object();
    const Richiesta Nuova{Letta[u"da"_s].toString(), Letta[u"a"_s].toString(), Letta[u"secondi"_s].toInt()};
    if (Nuova.Da.isEmpty() || Nuova.A.isEmpty() || Nuova.Secondi < 1 || Nuova.Secondi > MassimiSecondi)
        return std::nullopt;
    return Nuova;
}

void Raccogli(pid_t Figlio)
{
    (void)::kill(Figlio, SIGKILL);
    while (::waitpid(Figlio, nullptr, 0) < 0 && errno == EINTR)
        continue;
}

/// Passes the lines of a process on, and its last one back; empty where it ended without one.
QByteArray Ascolta(int Da, const Richiesta& Cosa, int Uscita)
{
    constexpr int AttesaPerSecondo = 5;
    const QDeadlineTimer Scadenza(qint64(Cosa.Secondi) * AttesaPerSecondo * 1000);
    QByteArray Letto;
    for (;;) {
        pollfd Attesa{Da, POLLIN, 0};
        const int Pronti = ::poll(&Attesa, 1, int(Scadenza.remainingTime()));
        if (Pronti < 0 && errno == EINTR)
            continue;
        if (Pronti <= 0 || Letto.size() > MassimaRisposta)
            return {};
        std::array<char, 16384> Pezzo{};
        const ssize_t Avuti = ::read(Da, Pezzo.data(), Pezzo.size());
        if (Avuti < 0 && errno == EINTR)
            continue;
        if (Avuti <= 0)
            return {};
        Letto.append(Pezzo.data(), Avuti);
        for (qsizetype A = Letto.indexOf('\n'); A >= 0; A = Letto.indexOf('\n')) {
            const QByteArray Una = Letto.first(A + 1);
            Letto.remove(0, A + 1);
            if (!Una.startsWith("{\"avanzate\""))
                return Una;
            if (!Scrivi(Uscita, Una))
                return {};
        }
    }
}

QByteArray Risposta(const Richiesta& Cosa, int Ingresso, int Uscita)
{
    const QString Interrotta =
        u"La lettura del file si è interrotta: il file è danneggiato, o chiede troppo"_s;
    std::array<int, 2> Tubo{-1, -1};
    if (::pipe(Tubo.data()) != 0)
        return RigaErrore(errori::Memoria, DescrizioneErrore(errori::Memoria));
    const pid_t Figlio = ::fork();
    if (Figlio < 0) {
        (void)::close(Tubo[0]);
        (void)::close(Tubo[1]);
        return RigaErrore(errori::Memoria, DescrizioneErrore(errori::Memoria));
    }
    if (Figlio == 0) {
        (void)::close(Tubo[0]);
        (void)::close(Ingresso);
        (void)::close(Uscita);
        // Whoever asked lets others read it, once it is whole.
        (void)::umask(S_IRWXG | S_IRWXO);
        LimitaRisorse(Cosa.Secondi, MassimoScritto(Cosa.Da));
        (void)Scrivi(Tubo[1], Esegui(Cosa, Tubo[1]));
        ::_exit(0);
    }
    (void)::close(Tubo[1]);
    const QByteArray Detta = Ascolta(Tubo[0], Cosa, Uscita);
    (void)::close(Tubo[0]);
    Raccogli(Figlio);
    return Detta.isEmpty() ? RigaErrore(errori::FormatoDatabase, Interrotta) : Detta;
}

}  // namespace

int ServiRichieste(int Ingresso, int Uscita)
{
    (void)std::signal(SIGPIPE, SIG_IGN);
    QByteArray Letto;
    for (;;) {
        for (qsizetype A = Letto.indexOf('\n'); A >= 0; A = Letto.indexOf('\n')) {
            const std::optional<Richiesta> Cosa = LeggiRichiesta(QByteArrayView(Letto).first(A));
            Letto.remove(0, A + 1);
            const QByteArray Detta =
                Cosa ? Risposta(*Cosa, Ingresso, Uscita)
                     : RigaErrore(errori::Argomento, DescrizioneErrore(errori::Argomento));
            if (!Scrivi(Uscita, Detta))
                return 1;
        }
        if (Letto.size() > MassimaRichiesta)
            return 1;
        std::array<char, 16384> Pezzo{};
        const ssize_t Avuti = ::read(Ingresso, Pezzo.data(), Pezzo.size());
        if (Avuti < 0 && errno == EINTR)
            continue;
        if (Avuti <= 0)
            return Avuti < 0 ? 1 : 0;
        Letto.append(Pezzo.data(), Avuti);
    }
}
