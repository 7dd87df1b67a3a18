// An Access file as its library opens it: its tables, and the rows of each.
#pragma once

#include "platform/accesso/figlio/righe.h"
#include "platform/database/database.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

/// A column with what this program keeps of it.
struct ColonnaLetta
{
    Campo Come;  ///< no such type in this program: see `Perche`
    ColonnaAccess Dove;
    QString Perche;  ///< why it is left out; empty for one that is kept
};

/// A table, or why there is none.
struct TabellaLetta
{
    QString Nome;
    QString Perche;  ///< why it is left out; empty for one that is kept
    QList<ColonnaLetta> Colonne;
    QList<IndiceAccess> Indici;
    qint64 RigheDichiarate = 0;
    qint64 UltimoContatore = 0;
};

/// A row: its values in the order of the columns that are kept.
struct RigaLetta
{
    QList<QVariant> Valori;
    QList<int> Illeggibili;  ///< columns, by their place among all, whose value is lost
    QList<int> Enormi;       ///< those with more than a cell may hold
};

/// An open Access file. Whatever it holds may be wrong.
class ArchivioAccess
{
public:
    /// @throws Errore 3343 no Access file, encrypted, damaged
    explicit ArchivioAccess(const QString& File);
    ~ArchivioAccess();
    ArchivioAccess(const ArchivioAccess&) = delete;
    ArchivioAccess& operator=(const ArchivioAccess&) = delete;

    /// Reads the list of tables. @throws Errore 3343
    void LeggiElenco();
    /// Those of the office, and those that are named and left out.
    [[nodiscard]] qsizetype Tabelle() const;
    /// A table by its place; its rows come next.
    [[nodiscard]] TabellaLetta Apri(qsizetype Posto);
    /// The rows of the table that was opened last.
    /// @return rows whose bytes make no row
    /// @throws Errore 3343 a file that is shorter than its own table
    qint64 Righe(const std::function<void(const RigaLetta&)>& Prendi);

private:
    struct Dati;
    std::unique_ptr<Dati> Stato;
};
