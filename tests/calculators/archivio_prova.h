// Rate archives made for a test.
#pragma once

#include "platform/database/database.h"
#include "supporto/prova.h"

#include <QDate>

#include <tuple>
#include <vector>

/// First day, last day, rate.
using PeriodoProva = std::tuple<QDate, QDate, QVariant>;

/// An archive with one table of rates and nothing else; full path.
inline QString ArchivioConTassi(const QString& Tabella, const std::vector<PeriodoProva>& Periodi)
{
    const QString File = NuovaCartella() + QStringLiteral("Tassi.dat");
    const Database Db = CreateDatabase(File);
    Db.CreaTabella(Tabella, {{QStringLiteral("Dal"), TipoCampo::Data, 0, {}, false},
                             {QStringLiteral("Al"), TipoCampo::Data, 0, {}, false},
                             {QStringLiteral("Tasso"), TipoCampo::Singolo, 0, {}, false}});
    Db.CreaIndice(Tabella, QStringLiteral("Dal"), {QStringLiteral("Dal")});
    for (const auto& [Dal, Al, Tasso] : Periodi)
        Db.Execute(
            QStringLiteral("INSERT INTO %1 VALUES (?,?,?)").arg(Tabella),
            {Dal.isValid() ? QVariant(Dal) : QVariant(), Al.isValid() ? QVariant(Al) : QVariant(), Tasso});
    return File;
}

/// The archive that is delivered.
inline QString ArchivioConsegnato()
{
    return ProgrammaDiProva() + QStringLiteral("Tassi.dat");
}
