// Failures in tests: which error a call ends in, and what it leaves open.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <functional>
#include <sys/resource.h>

/// What a call throws, as the user is told it; 0 and no sentence when it throws nothing.
struct ErroreVisto
{
    int Numero = 0;
    QString Descrizione;
};
ErroreVisto ErroreDi(const std::function<void()>& Fai);

/// Its number alone, and its sentence alone.
int NumeroErrore(const std::function<void()>& Fai);
QString DescrizioneErroreDi(const std::function<void()>& Fai);

/// How many times this process has the file open; read from the system's list (Linux).
inline int FileAperti(const QString& File)
{
    int Quanti = 0;
    const QString Vero = QFileInfo(File).canonicalFilePath();
    for (const QFileInfo& Voce :
         QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::System | QDir::Files))
        Quanti += Voce.symLinkTarget() == Vero;
    return Quanti;
}

/// Names of all that stands in a folder, hidden files too.
inline QStringList ContenutoDi(const QString& Cartella)
{
    return QDir(Cartella).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                    QDir::Name);
}

/// A folder that refuses new files while the object lives.
class CartellaChiusa
{
public:
    explicit CartellaChiusa(const QString& Nome) : Cartella(Nome)
    {
        QFile::setPermissions(Cartella, QFile::ReadOwner | QFile::ExeOwner);
    }
    ~CartellaChiusa()
    {
        QFile::setPermissions(Cartella, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    CartellaChiusa(const CartellaChiusa&) = delete;
    CartellaChiusa& operator=(const CartellaChiusa&) = delete;

private:
    QString Cartella;
};

/// Keeps this process from writing files beyond a size, as a full disk does.
class LimiteDiScrittura
{
public:
    explicit LimiteDiScrittura(rlim_t Byte)
    {
        Segnale = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &Prima);
        rlimit Ora = Prima;
        Ora.rlim_cur = Byte;
        setrlimit(RLIMIT_FSIZE, &Ora);
    }
    ~LimiteDiScrittura()
    {
        setrlimit(RLIMIT_FSIZE, &Prima);
        std::signal(SIGXFSZ, Segnale);
    }
    LimiteDiScrittura(const LimiteDiScrittura&) = delete;
    LimiteDiScrittura& operator=(const LimiteDiScrittura&) = delete;

private:
    rlimit Prima{};
    void (*Segnale)(int) = SIG_DFL;
};
