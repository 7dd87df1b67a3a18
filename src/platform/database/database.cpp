#include "platform/database/database.h"

#include "platform/base/errore.h"
#include "platform/database/connessione.h"
#include "platform/system/file.h"

QString Database::Percorso() const
{
    return Conn ? Conn->Percorso() : QString();
}

quint64 Database::Versione() const
{
    return PerLeggere().Versione();
}

int Database::Execute(const QString& Sql, const QVariantList& Valori) const
{
    return PerScrivere().Esegui(Sql, Valori);
}

Connessione& Database::PerLeggere() const
{
    if (!Conn)
        throw Errore(errori::DatabaseMancante);
    return *Conn;
}

Connessione& Database::PerScrivere() const
{
    if (Lettura)
        throw Errore(errori::DatabaseSolaLettura);
    return PerLeggere();
}

Database OpenDatabase(const QString& Percorso, bool SolaLettura)
{
    Database Db;
    Db.Conn = Connessione::Condivisa(Percorso);
    // The bits are looked at again for a connection that is already open: the file may have become
    // read-only since.
    Db.Lettura = SolaLettura || !Db.Conn->Scrivibile() || ::SolaLettura(Db.Conn->Percorso());
    return Db;
}

Database CreateDatabase(const QString& Percorso)
{
    Database Db;
    Db.Conn = Connessione::Nuova(Percorso, Lettori::Tutti);
    return Db;
}

Database CreaDatabasePrivato(const QString& Percorso)
{
    Database Db;
    Db.Conn = Connessione::Nuova(Percorso, Lettori::SoloUtente);
    return Db;
}

bool EsisteCampo(const QString& Percorso, const QString& Tabella, const QString& Colonna)
{
    return OpenDatabase(Percorso, true).EsisteCampo(Tabella, Colonna);
}

Transazione::Transazione(const Database& Db) : Conn(Db.Conn)
{
    if (Db.PerScrivere().InTransazione())
        throw Errore(errori::InTransazione);
    Aperta = std::make_unique<Blocco>(*Conn);
}

Transazione::~Transazione() = default;

void Transazione::Conferma()
{
    Aperta->Conferma();
}
