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

bool PrendiBlocco(QLockFile& Blocco, int AttesaMs)
{
    Blocco.setStaleLockTime(0);
    if (Blocco.tryLock(AttesaMs))
        return true;
    if (Blocco.error() != QLockFile::LockFailedError || !DiNessuno(Blocco.fileName()))
        return false;
    QFile::remove(Blocco.fileName());
    return Blocco.tryLock(0);
}
