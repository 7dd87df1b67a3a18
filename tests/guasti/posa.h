// Files laid out and looked at by their bytes.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// Lays a file out for everybody.
inline void Posa(const QString& File, const QByteArray& Contenuto)
{
    QFile Nuovo(File);
    if (!Nuovo.open(QIODevice::WriteOnly) || Nuovo.write(Contenuto) != Contenuto.size())
        qFatal("%s cannot be laid out", qPrintable(File));
}

/// The whole content; empty for what cannot be read.
[[nodiscard]] inline QByteArray Contenuto(const QString& File)
{
    QFile Letto(File);
    return Letto.open(QIODevice::ReadOnly) ? Letto.readAll() : QByteArray();
}
