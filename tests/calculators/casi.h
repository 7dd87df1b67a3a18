// Worked examples: tests/casi/<name>.csv, a heading row, fields separated by ";", lines of remarks behind
// "#".
#pragma once

#include "platform/system/file.h"
#include "supporto/prova.h"

#include <QStringList>

#include <vector>

/// The rows of a table of cases; the last field tells how the result was worked out and names the row.
inline std::vector<QStringList> Casi(const QString& Nome)
{
    const QString Testo = QString::fromUtf8(LeggiFile(FileDiProva(QStringLiteral("casi/") + Nome)));
    std::vector<QStringList> Righe;
    for (const QString& Riga : Testo.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        if (!Riga.startsWith(QLatin1Char('#')))
            Righe.push_back(Riga.split(QLatin1Char(';')));
    if (!Righe.empty())
        Righe.erase(Righe.begin());
    return Righe;
}

/// A name for a row that is unique and can be typed.
inline QByteArray NomeCaso(size_t Numero, const QStringList& Riga)
{
    return QByteArray::number(int(Numero + 1)) + ": " + Riga.last().toUtf8();
}
