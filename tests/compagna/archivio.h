// The archive of the companion application, as a practice program keeps one: the invoices among other things.
#pragma once

#include "platform/database/database.h"

/// @throws Errore as CreateDatabase
inline void CreaArchivioPratiche(const QString& File)
{
    using namespace Qt::StringLiterals;
    const Database Archivio = CreateDatabase(File);
    for (const auto* Sql : {
             u"CREATE TABLE Pratiche (Rif TEXT(20), Oggetto TEXT(255), Aperta DATETIME, Chiusa BOOLEAN)",
             u"CREATE TABLE Fatture (Rif TEXT(20), NumF TEXT(20), DataF DATETIME, TipoF TEXT(1), ModoF "
             u"TEXT(1), "
             "CorriF DOUBLE, IDContab INTEGER)",
             u"CREATE TABLE Agenda (Rif TEXT(20), Giorno DATETIME, Udienza LONGTEXT)",
             u"INSERT INTO Pratiche VALUES ('P12', 'Sfratto', '2026-01-15', 0)",
             u"INSERT INTO Fatture VALUES ('P7', '3', '2026-02-01', 'A', 'E', 250.5, 1)",
             u"INSERT INTO Agenda VALUES ('P12', '2026-12-01', 'Lucca')",
         })
        Archivio.Execute(QString::fromUtf16(Sql));
}
