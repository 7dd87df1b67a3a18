// Files of the system's that are open, and the names that they bear.
#pragma once

#ifndef Q_OS_WIN
#include <QByteArray>

#include <sys/stat.h>

/// Whether the file that is open still bears the name.
[[nodiscard]] inline bool HaQuestoNome(int Fd, const QByteArray& Nome)
{
    struct stat Aperto = {};
    struct stat Sotto = {};
    return ::fstat(Fd, &Aperto) == 0 && ::lstat(Nome.constData(), &Sotto) == 0 &&
           Aperto.st_dev == Sotto.st_dev && Aperto.st_ino == Sotto.st_ino;
}
#endif
