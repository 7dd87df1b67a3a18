#include "platform/system/fileinmemoria.h"

#include "platform/base/errore.h"

#include <QFile>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#else
#include <QTemporaryFile>
#endif

using namespace Qt::StringLiterals;

struct FileInMemoria::Interno
{
#ifdef Q_OS_LINUX
    QFile File;
#else
    QTemporaryFile File;
#endif
};

FileInMemoria::FileInMemoria() : Dati(std::make_unique<Interno>())
{
#ifdef Q_OS_LINUX
    const int Suo = ::memfd_create("calcanova", MFD_CLOEXEC);
    if (Suo < 0 || !Dati->File.open(Suo, QIODevice::ReadOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        throw Errore(errori::Accesso);
#else
    if (!Dati->File.open())
        throw Errore(errori::Accesso);
#endif
}

FileInMemoria::~FileInMemoria() = default;

QString FileInMemoria::Nome() const
{
#ifdef Q_OS_LINUX
    return u"/proc/self/fd/%1"_s.arg(Dati->File.handle());
#else
    return Dati->File.fileName();
#endif
}

QByteArray FileInMemoria::Contenuto() const
{
    if (!Dati->File.seek(0))
        throw Errore(errori::Periferica);
    QByteArray Byte = Dati->File.readAll();
    if (Dati->File.error() != QFileDevice::NoError)
        throw Errore(errori::Periferica);
    return Byte;
}
