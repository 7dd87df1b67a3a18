// Files of the system's, and the names that they bear.
#pragma once

#include <QByteArray>
#include <QFile>

#ifndef Q_OS_WIN
#include <sys/stat.h>

/// Whether the file that is open still bears the name.
[[nodiscard]] inline bool HaQuestoNome(int Fd, const QByteArray& Nome)
{
    struct stat Aperto = {};
    struct stat Sotto = {};
    return ::fstat(Fd, &Aperto) == 0 && ::lstat(Nome.constData(), &Sotto) == 0 &&
           Aperto.st_dev == Sotto.st_dev && Aperto.st_ino == Sotto.st_ino;
}

/// Whether a file has further names on its disk, as many backups give it: what is written into it changes
/// under all of them.
[[nodiscard]] inline bool HaAltriNomi(const QString& Percorso)
{
    struct stat Suo = {};
    return ::stat(QFile::encodeName(Percorso).constData(), &Suo) == 0 && S_ISREG(Suo.st_mode) &&
           Suo.st_nlink > 1;
}
#else
[[nodiscard]] inline bool HaAltriNomi(const QString&)
{
    return false;
}
#endif
