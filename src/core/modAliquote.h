// The rates of a fee note by date: VAT, withholding tax, general expenses, pension fund.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

/// A rate that is or was in force.
struct AliquotaDatata
{
    QString Chiave;  ///< key of the setting that it fills
    QDate Dal;       ///< first day
    QDate Al;        ///< last day, invalid while it is in force
    double Percento = 0;
    QString Norma;  ///< where it is laid down
};

/// The rates in force on a day, in the order of the table; a key without one on that day is left out.
[[nodiscard]] QList<AliquotaDatata> AliquoteAl(const QDate& Giorno);
