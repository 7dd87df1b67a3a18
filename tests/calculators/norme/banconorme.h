// The delivered norms, and copies of them that somebody has edited.
#pragma once

#include "supporto/alcaso.h"
#include "supporto/prova.h"

#include "calculators/norme/norme.h"
#include "core/sessione.h"
#include "platform/database/database.h"

/// The norms as just built.
inline const Norme& NormeConsegnate()
{
    static const Norme Lette(ProgrammaDiProva() + QStringLiteral("Norme.mdb"));
    return Lette;
}

inline QString CopiaNorme()
{
    const QString File = NuovaCartella() + QStringLiteral("Norme.mdb");
    QFile::copy(ProgrammaDiProva() + QStringLiteral("Norme.mdb"), File);
    QFile::setPermissions(File, QFile::ReadOwner | QFile::WriteOwner);
    return File;
}

/// A copy on which a statement has been run; `ConSigillo`: sealed again, as whoever knows the seal would.
inline QString NormeRitoccate(const QString& Sql, bool ConSigillo)
{
    const QString File = CopiaNorme();
    const Database Db = OpenDatabase(File);
    Db.Execute(Sql);
    if (ConSigillo) {
        QMap<QString, QString> Note = Db.Annotazioni();
        Note[NomeSigillo.toString()] = SigilloNorme(Db);
        Db.Annota(Note);
    }
    return File;
}
