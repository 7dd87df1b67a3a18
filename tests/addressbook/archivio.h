// An archive of the test's own, as it is delivered.
#pragma once

#include "core/sessione.h"
#include "platform/database/database.h"
#include "supporto/prova.h"

#include <QFile>

/// The delivered archive in a new folder, as the session's; gone from the session with the object.
class ArchivioDiProva
{
public:
    ArchivioDiProva()
    {
        AzzeraSessione();
        sessione::ArchivioCliCon = NuovaCartella() + QStringLiteral("DatiStudio.mdb");
        QFile::copy(ProgrammaDiProva() + QStringLiteral("DatiStudio.mdb"), sessione::ArchivioCliCon);
        QFile::setPermissions(sessione::ArchivioCliCon, QFile::ReadOwner | QFile::WriteOwner);
    }
    ~ArchivioDiProva() { AzzeraSessione(); }
    ArchivioDiProva(const ArchivioDiProva&) = delete;
    ArchivioDiProva& operator=(const ArchivioDiProva&) = delete;

    static void Esegui(const QString& Sql, const QVariantList& Valori = {})
    {
        OpenDatabase(sessione::ArchivioCliCon).Execute(Sql, Valori);
    }
    static void Aggiungi(int ID, const QVariant& Nominativo, const QVariant& Citta = {})
    {
        Esegui(QStringLiteral("INSERT INTO clienti (ID, Nominativo, Citta) VALUES (?,?,?)"),
               {ID, Nominativo, Citta});
    }
};
