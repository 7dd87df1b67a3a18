// Failures in tests: which error a call ends in, and what it leaves open.
#pragma once

#include "platform/base/errore.h"

#include <QDir>
#include <QFileInfo>

/// The number of the error that the call throws, 0 when it throws none.
template <class Funzione>
int NumeroErrore(Funzione&& Fai)
{
    try {
        Fai();
    } catch (const Errore& E) {
        return E.Numero;
    }
    return 0;
}

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
