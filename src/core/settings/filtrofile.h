// The filter of a dialog that asks for a program.
#pragma once

#include <QString>

/// The filter, and all files where programs have no extension: nothing could be chosen there otherwise.
[[nodiscard]] inline QString FiltroProgrammi(const QString& Filtro)
{
#ifdef Q_OS_WIN
    return Filtro;
#else
    return Filtro + QStringLiteral("|Tutti i file (*)|*");
#endif
}
