#include "platform/system/fileaccanto.h"

#include "platform/base/errore.h"
#include "platform/system/attese.h"
#include "platform/system/codici.h"
#include "platform/system/datarifiutata.h"
#include "platform/system/guasti.h"
#include "platform/system/percorsi.h"
#include "platform/system/sincrono.h"
#include "platform/system/stessofile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <array>
#include <cstdlib>
#include <ctime>
#include <mutex>

#ifdef Q_OS_WIN
#include <QSaveFile>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN

struct FileAccanto::Interno
{
    QString Finale;
    QSaveFile File;
};

FileAccanto::FileAccanto(const QString& Finale, Lettori) : Dati(std::make_unique<Interno>())
{
    Dati->Finale = Finale;
    Dati->File.setFileName(Finale);
    if (!Dati->File.open(QIODevice::WriteOnly))
        throw Errore(errori::Accesso);
}

FileAccanto::~FileAccanto() = default;

void FileAccanto::Scrivi(QByteArrayView Byte)
{
    if (Dati->File.write(Byte.data(), Byte.size()) != Byte.size() || !Dati->File.flush())
        throw Errore(errori::DiscoPieno);
}

void FileAccanto::ImpostaData(const QDateTime& Quando)
{
    if (guasti::DateRifiutate || !Dati->File.setFileTime(Quando, QFileDevice::FileModificationTime))
        throw DataRifiutata();
}

void FileAccanto::Posa()
{
    if (!Dati->File.commit())
        throw Errore(errori::Accesso);
}

bool FileAccanto::PosaSeLibero()
{
    if (QFileInfo::exists(Dati->Finale))
        return false;
    Posa();
    return true;
}

// The library's own files have names that nobody can tell from others.
void TogliRestiAccanto(const QString&)
{}

#else

namespace {

constexpr int Nessuno = -1;

/// Calls again what a signal has broken off.
template <class F>
auto Riprova(F&& Chiama)
{
    auto Esito = Chiama();
    while (Esito < 0 && errno == EINTR)
        Esito = Chiama();
    return Esito;
}

void Pretendi(int Esito)
{
    if (Esito < 0)
        throw ErroreDelSistema(errno);
}

/// The name of the file for the moment in which it has one that is not its own.
QByteArray NomeAccanto(const QString& Finale)
{
    constexpr qsizetype MassimoNome = 255;
    const QString Nome = u".~"_s + NomeFile(Finale) + u".tmp"_s;
    if (ByteDelNome(Nome) <= MassimoNome)
        return QFile::encodeName(CartellaFile(Finale) + Nome);
    const QByteArray Sigla = QCryptographicHash::hash(Finale.toUtf8(), QCryptographicHash::Md5).toHex();
    return QFile::encodeName(CartellaFile(Finale) + u".~"_s) + Sigla + ".tmp";
}

/// Frees a name from the file that a killed program has left there; one whose writer lives is waited for.
/// @return false, and the reason in `errno`, when it stays. @throws Errore 55 its writer goes on and on
bool Libera(const QByteArray& Nome)
{
    constexpr int PassoMs = 20;
    QElapsedTimer Orologio;
    Orologio.start();
    for (;;) {
        const int Aperto = ::open(Nome.constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
        const bool Scritto = Aperto >= 0 && !guasti::SenzaBlocchi &&
                             ::flock(Aperto, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        const bool Libero = !Scritto && (::unlink(Nome.constData()) == 0 || errno == ENOENT);
        const int Codice = errno;
        if (Aperto >= 0)
            ::close(Aperto);
        errno = Codice;
        if (!Scritto)
            return Libero;
        if (Orologio.elapsed() >= attese::TurnoMs)
            throw Errore(errori::GiaInUso);
        QThread::msleep(PassoMs);
    }
}

/// Takes a file away that is nobody's any more.
void TogliSeDiNessuno(const QByteArray& Nome)
{
    constexpr time_t Fermo = time_t(5) * 60;
    struct stat Suo = {};
    if (::lstat(Nome.constData(), &Suo) != 0 || !S_ISREG(Suo.st_mode) || Suo.st_uid != ::geteuid() ||
        std::abs(::time(nullptr) - Suo.st_mtime) < Fermo)
        return;
    // A share gives its lock to a file that is open for writing alone.
    const int Aperto = ::open(Nome.constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (Aperto < 0)
        return;
    if (::flock(Aperto, LOCK_EX | LOCK_NB) == 0 && HaQuestoNome(Aperto, Nome))
        ::unlink(Nome.constData());
    ::close(Aperto);
}

/// Once for each folder and process.
void TogliRestiUnaVolta(const QByteArray& Finale)
{
    static std::mutex Turno;
    static QStringList Passate;
    const QString Cartella = CartellaFile(QFile::decodeName(Finale));
    {
        const std::lock_guard Mio(Turno);
        if (Passate.contains(Cartella))
            return;
        Passate.append(Cartella);
    }
    TogliRestiAccanto(Cartella);
}

}  // namespace

void TogliRestiAccanto(const QString& Cartella)
{
    const QString Qui = Cartella.isEmpty() ? u"./"_s : Barra(Cartella);
    // A note that is being built bears no such lock, but its turn does: its leftovers go with the next note.
    const QStringList Nomi = QDir(Qui).entryList({u".~*.tmp"_s}, QDir::Files | QDir::Hidden);
    for (const QString& Nome : Nomi)
        if (!Nome.endsWith(u".mdb.tmp", Qt::CaseInsensitive))
            TogliSeDiNessuno(QFile::encodeName(Qui + Nome));
}

struct FileAccanto::Interno
{
    QByteArray Finale;
    QByteArray Accanto;
    int File = Nessuno;
    bool ConNome = false;  ///< it stands in the folder as `Accanto`

    void Apri(Lettori Chi);
    /// By which the system finds it while it is open.
    [[nodiscard]] QByteArray Percorso() const
    {
        return ConNome ? Accanto : "/proc/self/fd/" + QByteArray::number(File);
    }
    [[nodiscard]] int DaiNome(const QByteArray& Nome) const;
    void PretendiProprio();
    void Chiudi();
};

void FileAccanto::Interno::Apri(Lettori Chi)
{
    // What gets other permissions is nobody else's file before it has them.
    constexpr mode_t DiTutti = 0666;
    constexpr mode_t Privato = 0600;
    const bool Solito = Chi == Lettori::Tutti && ::access(Finale.constData(), F_OK) != 0;
    const mode_t Permessi = Solito ? DiTutti : Privato;
#ifdef O_TMPFILE
    // Such a file gets its name through the process's own list of files.
    if (!guasti::SenzaFileAnonimi && ::access("/proc/self/fd", X_OK) == 0) {
        const qsizetype Fine = Finale.lastIndexOf('/');
        const QByteArray Cartella = Fine < 0 ? "."_ba : Finale.first(Fine + 1);
        File =
            Riprova([&] { return ::open(Cartella.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, Permessi); });
        if (File >= 0) {
            ::flock(File, LOCK_EX | LOCK_NB);
            return;
        }
        if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
            throw ErroreDelSistema(errno);
    }
#endif
    const auto Crea = [&] {
        return Riprova(
            [&] { return ::open(Accanto.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, Permessi); });
    };
    File = Crea();
    if (File < 0 && errno == EEXIST && Libera(Accanto))
        File = Crea();
    Pretendi(File);
    // Whoever finds it sees that its writer lives.
    ::flock(File, LOCK_EX | LOCK_NB);
    ConNome = true;
}

/// Gives the file a name that is free. @return as the system's call
int FileAccanto::Interno::DaiNome(const QByteArray& Nome) const
{
    if (ConNome)
        return ::link(Accanto.constData(), Nome.constData());
    return ::linkat(AT_FDCWD, Percorso().constData(), AT_FDCWD, Nome.constData(), AT_SYMLINK_FOLLOW);
}

/// What bears the name may be another's by now, where a disk shows nobody's locks. @throws Errore 55
void FileAccanto::Interno::PretendiProprio()
{
    if (!ConNome || HaQuestoNome(File, Accanto))
        return;
    ConNome = false;
    throw Errore(errori::GiaInUso);
}

void FileAccanto::Interno::Chiudi()
{
    if (ConNome && HaQuestoNome(File, Accanto))
        ::unlink(Accanto.constData());
    ConNome = false;
    if (File >= 0)
        ::close(File);  // what it held is on the disk, or is given up
    File = Nessuno;
}

FileAccanto::FileAccanto(const QString& Finale, Lettori Chi) : Dati(std::make_unique<Interno>())
{
    Dati->Finale = QFile::encodeName(Finale);
    Dati->Accanto = NomeAccanto(Finale);
    Dati->Apri(Chi);
    try {
        DaiPermessi(QFile::decodeName(Dati->Percorso()), Finale, Chi);
    } catch (...) {
        Dati->Chiudi();
        throw;
    }
}

FileAccanto::~FileAccanto()
{
    Dati->Chiudi();
}

void FileAccanto::Scrivi(QByteArrayView Byte)
{
    while (!Byte.isEmpty()) {
        const ssize_t Scritti =
            Riprova([&] { return ::write(Dati->File, Byte.data(), size_t(Byte.size())); });
        if (Scritti < 0)
            throw ErroreDelSistema(errno);
        Byte = Byte.sliced(Scritti);
    }
}

void FileAccanto::ImpostaData(const QDateTime& Quando)
{
    constexpr qint64 MsNelSecondo = 1000;
    constexpr long NanoNelMs = 1'000'000;
    const int Ms = Quando.time().msec();
    const std::array<timespec, 2> Date{
        timespec{0, UTIME_OMIT},
        timespec{time_t((Quando.toMSecsSinceEpoch() - Ms) / MsNelSecondo), Ms * NanoNelMs}};
    if (guasti::DateRifiutate || ::futimens(Dati->File, Date.data()) != 0)
        throw DataRifiutata();
}

void FileAccanto::Posa()
{
    Pretendi(Riprova([&] { return ::fsync(Dati->File); }));
    Dati->PretendiProprio();
    if (!Dati->ConNome) {
        int Esito = Dati->DaiNome(Dati->Accanto);
        if (Esito < 0 && errno == EEXIST && Libera(Dati->Accanto))
            Esito = Dati->DaiNome(Dati->Accanto);
        Pretendi(Esito);
        Dati->ConNome = true;
    }
    Pretendi(::rename(Dati->Accanto.constData(), Dati->Finale.constData()));
    Dati->ConNome = false;
    SincronizzaCartellaDi(QFile::decodeName(Dati->Finale));
    TogliRestiUnaVolta(Dati->Finale);
}

bool FileAccanto::PosaSeLibero()
{
    Pretendi(Riprova([&] { return ::fsync(Dati->File); }));
    Dati->PretendiProprio();
    if (Dati->DaiNome(Dati->Finale) < 0) {
        if (errno == EEXIST)
            return false;
        const bool SenzaSecondiNomi = errno == EPERM || errno == EOPNOTSUPP || errno == EMLINK;
        if (!SenzaSecondiNomi || !Dati->ConNome)
            throw ErroreDelSistema(errno);
        // On a medium that knows no second names a look must do.
        if (::access(Dati->Finale.constData(), F_OK) == 0)
            return false;
        Pretendi(::rename(Dati->Accanto.constData(), Dati->Finale.constData()));
        Dati->ConNome = false;
    }
    try {
        SincronizzaCartellaDi(QFile::decodeName(Dati->Finale));
    } catch (const NonConfermato& Guasto) {
        // Nothing stood there, and nothing does for who is told that it was not written.
        if (!HaQuestoNome(Dati->File, Dati->Finale) || ::unlink(Dati->Finale.constData()) != 0)
            throw;
        throw Errore(Guasto.Numero);
    }
    TogliRestiUnaVolta(Dati->Finale);
    return true;
}

#endif
