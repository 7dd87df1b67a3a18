// Another program's archive, as it is laid out to be taken: for the machine of calls that fail and for that
// of programs that are killed.
#pragma once

#include "guasti/posa.h"
#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/database/database.h"
#include "platform/database/recordset.h"
#include "platform/system/file.h"
#include "supporto/prova.h"
#include "supporto/scrittoreaccess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace origine {

inline constexpr int Nomi = 300;
inline constexpr int Avversari = 40;
inline constexpr QFile::Permissions Altri =
    QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;

/// Another program's archive, over which it was killed in the middle of a write: with the journal by which
/// that is undone, and as an Access file.
struct Origine
{
    QByteArray Byte;
    QByteArray Giornale;
    QByteArray DiAccess;
};

inline const Origine& Vecchio()
{
    static const Origine Uno = [] {
        Origine Fatta;
        const QString File = NuovaCartella() + QStringLiteral("vecchio.mdb");
        Posa(File, Contenuto(ProgrammaDiProva() + QStringLiteral("DatiStudio.mdb")));
        {
            const Database Db = OpenDatabase(File);
            Transazione Insieme(Db);
            for (int i = 1; i <= Nomi; ++i)
                Db.Execute(QStringLiteral("INSERT INTO clienti (ID, Nominativo, Indirizzo, Citta) VALUES "
                                          "(?,?,?,'Lucca')"),
                           {i, QStringLiteral("Cliente numero %1").arg(i), QStringLiteral("Via %1").arg(i)});
            for (int i = 1; i <= Avversari; ++i)
                Db.Execute(
                    QStringLiteral("INSERT INTO controparti (ID, Nominativo, Citta) VALUES (?,?,'Pisa')"),
                    {2 * i, QStringLiteral("Avversario %1").arg(i)});
            Insieme.Conferma();
        }
        Fatta.DiAccess = ScriviAccess(AccessDa(File));
        Connessione Conn(File, Connessione::Modo::Scrittura);
        Conn.Esegui(QStringLiteral("PRAGMA cache_size=2"));
        Conn.Esegui(QStringLiteral("BEGIN IMMEDIATE"));
        Conn.Esegui(QStringLiteral("UPDATE clienti SET Nominativo='x' || Nominativo, Citta='altrove'"));
        Fatta.Byte = Contenuto(File);
        Fatta.Giornale = Contenuto(File + QStringLiteral("-journal"));
        if (!Fatta.Byte.contains("xCliente numero"))
            qFatal("a write that was cut off and has changed nothing");
        Conn.Esegui(QStringLiteral("ROLLBACK"));
        return Fatta;
    }();
    return Uno;
}

inline void PosaVecchio(const QString& File, bool DiAccess)
{
    QDir().mkpath(QFileInfo(File).path());
    Posa(File, DiAccess ? Vecchio().DiAccess : Vecchio().Byte);
    if (!DiAccess)
        Posa(File + QStringLiteral("-journal"), Vecchio().Giornale);
}

inline bool Intatto(const QString& File, bool DiAccess)
{
    return Contenuto(File) == (DiAccess ? Vecchio().DiAccess : Vecchio().Byte) &&
           (DiAccess || Contenuto(File + QStringLiteral("-journal")) == Vecchio().Giornale);
}

inline bool HaTutti(const QString& File)
{
    try {
        const Database Db = OpenDatabase(File, true);
        const Recordset Controllo = Db.OpenRecordset(QStringLiteral("SELECT * FROM pragma_integrity_check"));
        return !Controllo.Eof() && Controllo.Value(QStringLiteral("integrity_check")).toString() == u"ok" &&
               Db.OpenRecordset(
                     QStringLiteral("SELECT ID FROM clienti WHERE Nominativo LIKE 'Cliente numero %' "
                                    "AND Indirizzo LIKE 'Via %' AND Citta='Lucca'"))
                       .RecordCount() == Nomi &&
               Db.OpenRecordset(
                     QStringLiteral(
                         "SELECT ID FROM controparti WHERE Nominativo LIKE 'Avversario %' AND Citta='Pisa'"))
                       .RecordCount() == Avversari;
    } catch (const Errore&) {
        return false;
    }
}

}  // namespace origine
