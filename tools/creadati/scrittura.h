// Small helpers for the writers of new databases.
#pragma once

#include "platform/database/database.h"

/// A table that is filled row by row. Its name and columns are the database's own.
struct TabellaNuova
{
    QString Nome;
    QList<Campo> Colonne;
};

[[nodiscard]] Campo CampoTesto(const QString& Nome, int Caratteri, const QString& Descrizione = {});
[[nodiscard]] Campo CampoDi(TipoCampo Tipo, const QString& Nome, const QString& Descrizione = {});

/// @throws Errore as Database::CreaTabella
void Crea(const Database& Db, const TabellaNuova& Tabella);
/// Adds a row, values in the order of the columns; an empty text is written as Null.
/// @throws Errore as Database::Execute
void AggiungiRiga(const Database& Db, const TabellaNuova& Tabella, const QVariantList& Valori);
