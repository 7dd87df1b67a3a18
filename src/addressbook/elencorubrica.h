// The rows of an archive as the browser shows them, in one list.
#pragma once

#include "platform/database/recordset.h"

#include <QList>
#include <QString>
#include <QStringList>

struct ElencoRubrica
{
    QStringList Campi;         ///< names of the columns that show
    QList<QStringList> Righe;  ///< their texts, those of the rows that the filter leaves
    int Tutte = 0;             ///< rows of the table
};

/// @param DataSource archive; empty: "rubrica" in the program's folder
/// @param Testo words as the filter takes them; empty: every row
/// @throws Errore as OpenDatabase and Database::OpenRecordset
[[nodiscard]] ElencoRubrica ElencaRubrica(const QString& DataSource, const QString& Tabella,
                                          const QString& Testo);
/// The rows themselves. @throws Errore as ElencaRubrica
[[nodiscard]] Recordset RigheRubrica(const QString& DataSource, const QString& Tabella, const QString& Testo);
