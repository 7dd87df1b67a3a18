#include "platform/system/blocco.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

namespace {

/// Between the making of a lock file and its signature lie microseconds.
constexpr int SenzaFirmaMs = 1000;

bool DiNessuno(const QString& File)
{
    const QFileInfo Info(File);
    return Info.exists() && Info.size() == 0 &&
           Info.lastModified().msecsTo(QDateTime::currentDateTime()) > SenzaFirmaMs;
}

}  // namespace

FileBlocco::FileBlocco(const QString& Percorso) : File(std::make_unique<QLockFile>(Percorso))
{
    File->setStaleLockTime(0);
}

FileBlocco::~FileBlocco() = default;

FileBlocco::Esito FileBlocco::Prendi(int AttesaMs)
{
    bool Preso = File->tryLock(AttesaMs);
    if (!Preso && File->error() == QLockFile::LockFailedError && DiNessuno(File->fileName())) {
        QFile::remove(File->fileName());
        Preso = File->tryLock(0);
    }
    if (Preso)
        return Esito::Preso;
    switch (File->error()) {
    case QLockFile::LockFailedError:
        return Esito::Altrui;
    case QLockFile::PermissionError:
        return Esito::Rifiutato;
    default:
        return Esito::Impedito;
    }
}

QString FileBlocco::Percorso() const
{
    return File->fileName();
}
