// How a note's file stood when it was read or written: what says later whether somebody else has saved it
// since.
#pragma once

#include <QDateTime>
#include <QString>

struct ImprontaNota
{
    QDateTime Quando;  ///< last change, to the millisecond
    qint64 Byte = -1;  ///< -1: no file

    friend bool operator==(const ImprontaNota&, const ImprontaNota&) = default;
};

/// As the file stands now; without a file the value of a default one.
[[nodiscard]] ImprontaNota ImprontaDi(const QString& Percorso);
