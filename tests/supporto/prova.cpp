#include "supporto/prova.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <filesystem>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <csignal>
#include <sys/statvfs.h>
#include <unistd.h>
#endif

namespace {

/// The toolkit does not see names that are no text, and leaves them with their folder; it opens closed ones.
void TogliIntera(const QString& Cartella)
{
    std::error_code Guasto;
    std::filesystem::remove_all(Cartella.toStdString(), Guasto);
    if (Guasto)
        QDir(Cartella).removeRecursively();
}

/// The number of the process stands behind it.
const QString NomeDiProva = QStringLiteral("calcanova-prova-");

/// Where the folders of tests stand: in memory where the machine has such a disk with room, since the program
/// waits for the disk at every save, and thousands of saves are most of what a test does. Whoever names a
/// folder for temporary files gets that one.
QString CartellaTemporanea()
{
#ifdef Q_OS_LINUX
    constexpr auto InMemoria = "/dev/shm";
    constexpr quint64 Basta = quint64(1) << 30;
    struct statvfs Disco = {};
    if (!qEnvironmentVariableIsSet("TMPDIR") && ::statvfs(InMemoria, &Disco) == 0 &&
        !(Disco.f_flag & (ST_NOEXEC | ST_RDONLY)) && quint64(Disco.f_bavail) * Disco.f_frsize >= Basta &&
        ::access(InMemoria, W_OK | X_OK) == 0)
        return QString::fromLatin1(InMemoria);
#endif
    return QDir::tempPath();
}

}  // namespace

std::map<QString, std::function<QObject*()>>& ClassiDiProva()
{
    static std::map<QString, std::function<QObject*()>> Classi;
    return Classi;
}

RegistraProva::RegistraProva(const char* Nome, std::function<QObject*()> Crea)
{
    ClassiDiProva()[QString::fromLatin1(Nome)] = std::move(Crea);
}

void TogliCartelleDeiMorti(const QString& Dove)
{
#ifdef Q_OS_LINUX
    const QFileInfoList Tutte =
        QDir(Dove).entryInfoList({NomeDiProva + QStringLiteral("*")}, QDir::Dirs | QDir::NoSymLinks);
    for (const QFileInfo& Voce : Tutte) {
        bool Numero = false;
        const int Processo = Voce.fileName().mid(NomeDiProva.size()).section(u'-', 0, 0).toInt(&Numero);
        if (Numero && Processo > 0 && Voce.ownerId() == ::geteuid() && ::kill(Processo, 0) != 0 &&
            errno == ESRCH)
            TogliIntera(Voce.filePath());
    }
#else
    Q_UNUSED(Dove)
#endif
}

namespace {

struct RadiceDiProva : QTemporaryDir
{
    using QTemporaryDir::QTemporaryDir;
    ~RadiceDiProva() { TogliIntera(path()); }
};

}  // namespace

QString CartellaDiProva()
{
    static const RadiceDiProva Radice([] {
        const QString Dove = CartellaTemporanea();
        TogliCartelleDeiMorti(Dove);
        return Dove + u'/' + NomeDiProva + QString::number(QCoreApplication::applicationPid()) +
               QStringLiteral("-XXXXXX");
    }());
    return Radice.path() + QDir::separator();
}

QString NuovaCartella()
{
    static int Numero = 0;
    const QString Percorso = CartellaDiProva() + QString::number(++Numero);
    QDir().mkpath(Percorso);
    return Percorso + QDir::separator();
}

QString FileDiProva(const QString& Nome)
{
    return QStringLiteral(CARTELLA_PROVE "/") + Nome;
}

QString SorgenteDiProva(const QString& Nome)
{
    return QStringLiteral(CARTELLA_SORGENTE "/") + Nome;
}

QString ProgrammaDiProva()
{
    return QStringLiteral(CARTELLA_PROGRAMMA "/");
}
