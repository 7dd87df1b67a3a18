#include "platform/system/blocco.h"

#include "platform/system/guasti.h"
#include "platform/system/stessofile.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

#ifdef Q_OS_WIN
#include <QLockFile>
#else
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// Between the making of a lock file and its signature lie microseconds, on a slow network perhaps more.
constexpr qint64 SenzaFirmaMs = 1000;

/// No save takes so long, and the clocks of an office differ by less.
constexpr qint64 DiAltraMacchinaMs = qint64(5) * 60 * 1000;

qint64 DistanzaDaAdesso(const QDateTime& Quando)
{
    return std::abs(Quando.msecsTo(QDateTime::currentDateTime()));
}

}  // namespace

bool ProcessoVivo(qint64 Numero)
{
#ifdef Q_OS_WIN
    Q_UNUSED(Numero)
    return false;  // what a living one has open nobody deletes there
#else
    return Numero > 0 && Numero <= std::numeric_limits<pid_t>::max() &&
           (::kill(pid_t(Numero), 0) == 0 || errno == EPERM);
#endif
}

#ifdef Q_OS_WIN

struct FileBlocco::Presa
{
    explicit Presa(const QString& Percorso) : File(Percorso) { File.setStaleLockTime(0); }

    QLockFile File;
    FirmaBlocco DiChi;
};

FileBlocco::Esito FileBlocco::Prendi(int AttesaMs)
{
    if (Dentro->File.tryLock(AttesaMs))
        return Esito::Preso;
    const QFileInfo Info(Percorso());
    switch (Dentro->File.error()) {
    case QLockFile::LockFailedError: {
        QString Programma;
        Dentro->DiChi = {};
        const bool Firmato =
            Dentro->File.getLockInfo(&Dentro->DiChi.Processo, &Dentro->DiChi.Macchina, &Programma);
        Dentro->DiChi.Quando = Info.lastModified();
        const bool Altrove = Firmato && Dentro->DiChi.Macchina != QSysInfo::machineHostName();
        const qint64 Limite = Firmato ? DiAltraMacchinaMs : SenzaFirmaMs;
        return (Altrove || !Firmato) && DistanzaDaAdesso(Dentro->DiChi.Quando) > Limite ? Esito::Abbandonato
                                                                                        : Esito::Altrui;
    }
    case QLockFile::PermissionError:
        return Esito::Rifiutato;
    default:
        return Esito::Impedito;
    }
}

QString FileBlocco::Percorso() const
{
    return Dentro->File.fileName();
}

bool TogliBlocco(const QString& Percorso)
{
    // A lock that lives is open, and an open file stays.
    return !QFileInfo::exists(Percorso) || QFile::remove(Percorso);
}

#else

namespace {

/// A file of the system's, closed with the object.
class Maniglia
{
public:
    explicit Maniglia(int Aperta = -1) : Fd(Aperta) {}
    ~Maniglia() { Chiudi(); }
    Maniglia(const Maniglia&) = delete;
    Maniglia& operator=(const Maniglia&) = delete;

    [[nodiscard]] int Numero() const { return Fd; }
    [[nodiscard]] explicit operator bool() const { return Fd >= 0; }
    void Prendi(int Aperta)
    {
        Chiudi();
        Fd = Aperta;
    }
    int Cedi() { return std::exchange(Fd, -1); }
    void Chiudi()
    {
        if (Fd >= 0)
            ::close(std::exchange(Fd, -1));
    }

private:
    int Fd;
};

/// The signature as it stands in the file.
struct FirmaScritta
{
    qint64 Processo = 0;
    QString Macchina;
    QByteArray Impronta;  ///< number of the machine; empty where it has none
    QByteArray Avvio;     ///< number of the machine's last start
};

/// Process, program, machine and its two numbers, a line each, as other versions write it too.
std::optional<FirmaScritta> LeggiFirma(const QByteArray& Contenuto)
{
    const QList<QByteArray> Righe = Contenuto.split('\n');
    bool Numero = false;
    FirmaScritta Firma;
    Firma.Processo = Righe[0].toLongLong(&Numero);
    if (!Numero || Firma.Processo <= 0 || Righe.size() < 3)
        return std::nullopt;
    Firma.Macchina = QString::fromLocal8Bit(Righe[2]);
    Firma.Impronta = Righe.value(3);
    Firma.Avvio = Righe.value(4);
    return Firma;
}

/// Whether this machine has signed. Two machines of an office may bear one name, and a machine may get
/// another one: its number says more. Copies of a machine have its number too, so that under another name a
/// lock of which the system knows nothing is still theirs.
/// @param Nessuno the system says that no process holds the lock
bool DiQuestaMacchina(const FirmaScritta& Firma, bool Nessuno)
{
    const QByteArray Impronta = QSysInfo::machineUniqueId();
    const bool StessoNome = Firma.Macchina.isEmpty() || Firma.Macchina == QSysInfo::machineHostName();
    if (Firma.Impronta.isEmpty() || Impronta.isEmpty())
        return StessoNome;
    return Firma.Impronta == Impronta && (StessoNome || Nessuno);
}

/// Whether the process that has signed on this machine lives; after a start of the machine its number is
/// another's.
bool Vive(const FirmaScritta& Firma)
{
    const QByteArray Avvio = QSysInfo::bootUniqueId();
    if (!Firma.Avvio.isEmpty() && !Avvio.isEmpty() && Firma.Avvio != Avvio)
        return false;
    return ProcessoVivo(Firma.Processo);
}

QByteArray FirmaPropria()
{
    // As it was called: a lock may be taken before the application object stands, which knows its path.
    return QByteArray::number(qint64(::getpid())) + '\n' + ::program_invocation_short_name + '\n' +
           QSysInfo::machineHostName().toLocal8Bit() + '\n' + QSysInfo::machineUniqueId() + '\n' +
           QSysInfo::bootUniqueId() + '\n';
}

/// What a lock file that is in the way is worth.
enum class Stato { Sparito, Vivo, Morto, Abbandonato };

/// Looks at a lock file through a handle that keeps its lock, so that nobody else removes it meanwhile.
Stato Esamina(const QByteArray& Nome, Maniglia& Aperto, FirmaBlocco& DiChi)
{
    DiChi = {};
    DiChi.Quando = QFileInfo(QFile::decodeName(Nome)).lastModified();
    Aperto.Prendi(::open(Nome.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!Aperto && errno == ENOENT)
        return Stato::Sparito;
    QByteArray Contenuto(1024, '\0');
    const ssize_t Letti = Aperto ? ::read(Aperto.Numero(), Contenuto.data(), size_t(Contenuto.size())) : -1;
    Contenuto.truncate(std::max<ssize_t>(0, Letti));
    const bool Nessuno = Aperto && !guasti::SenzaBlocchi && ::flock(Aperto.Numero(), LOCK_EX | LOCK_NB) == 0;
    if (!Nessuno && !guasti::SenzaBlocchi && errno == EWOULDBLOCK && Aperto)
        return Stato::Vivo;
    const qint64 Eta = DistanzaDaAdesso(DiChi.Quando);
    if (!Aperto)
        return Eta > DiAltraMacchinaMs ? Stato::Abbandonato : Stato::Vivo;
    const auto Firma = LeggiFirma(Contenuto);
    if (!Firma)
        return Eta <= SenzaFirmaMs ? Stato::Vivo : Letti == 0 ? Stato::Morto : Stato::Abbandonato;
    DiChi.Processo = Firma->Processo;
    DiChi.Macchina = Firma->Macchina;
    if (!DiQuestaMacchina(*Firma, Nessuno))
        return Eta > DiAltraMacchinaMs ? Stato::Abbandonato : Stato::Vivo;
    // The system holds the lock of a process that lives, on every disk that knows such locks.
    return !Nessuno && Vive(*Firma) ? Stato::Vivo : Stato::Morto;
}

/// @return true when the name is free
bool TogliSeMorto(const QByteArray& Nome, Maniglia& Aperto, Stato Trovato)
{
    if (Trovato == Stato::Sparito)
        return true;
    // What went meanwhile has left the name free, or to somebody else, which the next attempt shows.
    return Trovato == Stato::Morto &&
           (!HaQuestoNome(Aperto.Numero(), Nome) || ::unlink(Nome.constData()) == 0);
}

}  // namespace

struct FileBlocco::Presa
{
    explicit Presa(const QString& Percorso) : File(Percorso), Nome(QFile::encodeName(Percorso)) {}

    [[nodiscard]] Esito Tenta();
    [[nodiscard]] Esito Crea();

    QString File;
    QByteArray Nome;
    Maniglia Tenuta;
    FirmaBlocco DiChi;
};

FileBlocco::Esito FileBlocco::Presa::Crea()
{
    Maniglia Nuova(::open(Nome.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666));
    if (!Nuova) {
        if (errno == EEXIST)
            return Esito::Altrui;
        return errno == EACCES || errno == EPERM || errno == EROFS ? Esito::Rifiutato : Esito::Impedito;
    }
    // Whoever looks at it just now has it for an instant.
    ::flock(Nuova.Numero(), LOCK_EX);
    // Whoever is kept waiting by it may read by whom.
    ::fchmod(Nuova.Numero(), 0644);
    const QByteArray Firma = FirmaPropria();
    if (::write(Nuova.Numero(), Firma.constData(), size_t(Firma.size())) != Firma.size()) {
        ::unlink(Nome.constData());
        return Esito::Impedito;
    }
    if (!HaQuestoNome(Nuova.Numero(), Nome))
        return Esito::Altrui;
    Tenuta.Prendi(Nuova.Cedi());
    return Esito::Preso;
}

FileBlocco::Esito FileBlocco::Presa::Tenta()
{
    if (const Esito Subito = Crea(); Subito != Esito::Altrui)
        return Subito;
    Maniglia Aperto;
    const Stato Trovato = Esamina(Nome, Aperto, DiChi);
    if (TogliSeMorto(Nome, Aperto, Trovato))
        return Crea();
    return Trovato == Stato::Abbandonato ? Esito::Abbandonato : Esito::Altrui;
}

FileBlocco::Esito FileBlocco::Prendi(int AttesaMs)
{
    constexpr int PassoMs = 50;
    if (Dentro->Tenuta)
        return Esito::Altrui;
    QElapsedTimer Orologio;
    Orologio.start();
    for (;;) {
        const Esito Ora = Dentro->Tenta();
        const qint64 Resta = AttesaMs - Orologio.elapsed();
        if (Ora != Esito::Altrui || Resta <= 0)
            return Ora;
        QThread::msleep(ulong(std::min<qint64>(Resta, PassoMs)));
    }
}

QString FileBlocco::Percorso() const
{
    return Dentro->File;
}

bool TogliBlocco(const QString& Percorso)
{
    const QByteArray Nome = QFile::encodeName(Percorso);
    Maniglia Aperto;
    FirmaBlocco DiChi;
    const Stato Trovato = Esamina(Nome, Aperto, DiChi);
    const bool Altrove = Trovato == Stato::Vivo && DiChi.Processo > 0 && !DiChi.Macchina.isEmpty() &&
                         DiChi.Macchina != QSysInfo::machineHostName();
    if (Trovato == Stato::Vivo && !Altrove)
        return false;
    return Trovato == Stato::Sparito || ::unlink(Nome.constData()) == 0 || errno == ENOENT;
}

#endif

FileBlocco::FileBlocco(const QString& Percorso) : Dentro(std::make_unique<Presa>(Percorso))
{}

#ifdef Q_OS_WIN
FileBlocco::~FileBlocco() = default;
#else
FileBlocco::~FileBlocco()
{
    if (Dentro->Tenuta && HaQuestoNome(Dentro->Tenuta.Numero(), Dentro->Nome))
        ::unlink(Dentro->Nome.constData());
}
#endif

FirmaBlocco FileBlocco::Titolare() const
{
    return Dentro->DiChi;
}

void ScartaBlocco(const QString& Percorso)
{
    if (!QFileInfo::exists(Percorso))
        return;
    FileBlocco Turno(Percorso);
    (void)Turno.Prendi(0);  // taken, it goes with the object
}
