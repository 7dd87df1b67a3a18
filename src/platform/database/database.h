// The database engine: one file per database, over SQLite.
//
// - One connection per file, shared by everything that opens it and closed with the last user.
// - Nothing holds a lock between two calls; a lock of somebody else is waited for 3 seconds.
// - Text in SQL is always bound; double-quoted strings are off, so that a quoted word is an identifier.
// - Files come from outside: views and triggers of a file are not run, its schema is not trusted, cells
//   are limited to 16 MiB.
#pragma once

#include "platform/database/recordset.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class Blocco;
class Connessione;  // the open file; sqlite3 stays in the .cpp

/// The engine's type code of a field.
enum class TipoCampo {
    Booleano = 1,
    Byte = 2,
    Intero = 3,  ///< 16 bits in the classic engine; held as a whole number
    Lungo = 4,   ///< 32 bits
    Valuta = 5,
    Singolo = 6,  ///< single-precision number
    Doppio = 7,
    Data = 8,    ///< stored as ISO text; a QDate, or a QDateTime when it has a time
    Testo = 10,  ///< up to Size characters
    Memo = 12,   ///< text without a limit of its own
};

/// A column as the engine describes it.
struct Campo
{
    QString Name;
    TipoCampo Type = TipoCampo::Testo;
    int Size = 0;            ///< characters of a Testo, 0 otherwise
    QString Description;     ///< free text; the address book reads its column settings from it
    bool Contatore = false;  ///< whole-number key that the engine fills

    friend bool operator==(const Campo&, const Campo&) = default;
};

/// A handle on an open database; copies share the connection. Default-constructed: closed.
class Database
{
public:
    Database() = default;

    [[nodiscard]] bool Aperto() const { return bool(Conn); }
    [[nodiscard]] QString Percorso() const;
    [[nodiscard]] bool DiSolaLettura() const { return Lettura; }

    /// Another number once anybody, this program or another one, has written to the file.
    /// @throws Errore as Execute
    [[nodiscard]] quint64 Versione() const;

    /// Runs one statement of SQLite's SQL, values bound in order to its "?".
    /// Null is an invalid QVariant, dates are bound as ISO text, truth values as -1 or 0.
    /// @throws Errore 3027 on a read-only handle or file, 3026 disk full, 3144 syntax, 3078 no such table,
    ///         3061 no such column, 3022 duplicate key, 3260 locked, 3343 no database
    /// @return rows changed
    int Execute(const QString& Sql, const QVariantList& Valori = {}) const;

    /// Opens a table by its name, or a SELECT with values bound in order to its "?".
    ///
    /// A table, or a SELECT from one table without grouping or DISTINCT, gives an updatable set of keys
    /// that fetches each row when it is shown; any other SELECT gives a fixed copy of its rows.
    /// Table and column names may carry accents; the queries of the program run as they stand.
    /// A query may say "COLLATE SenzaMaiuscole" (case plays no part), "COLLATE SenzaAccenti" (nor do accents;
    /// a table ordered so by one column alone is sorted in memory, and fast) and datevalue('gg/mm/aaaa').
    /// Rows that their ORDER BY leaves level, or without one, come in the order in which they were added.
    /// @throws Errore as Execute
    [[nodiscard]] Recordset OpenRecordset(const QString& Origine, const QVariantList& Valori = {}) const;

    /// Names as the file spells them, in the order of creation; views do not count.
    [[nodiscard]] QStringList Tabelle() const;
    [[nodiscard]] bool EsisteTabella(const QString& Tabella) const;
    /// Case plays no part. @throws Errore 3343 when the file is no database
    [[nodiscard]] bool EsisteCampo(const QString& Tabella, const QString& Colonna) const;
    /// The columns in order. Type, size and description come from the file's side table `_Campi`; for a
    /// column that stands only in the schema (added by ALTER TABLE) they are read from its declaration.
    /// @throws Errore 3078 no such table
    [[nodiscard]] QList<Campo> Campi(const QString& Tabella) const;

    /// Creates a table and notes its columns in the side table. @throws Errore 3010 when it exists
    void CreaTabella(const QString& Tabella, const QList<Campo>& Colonne) const;
    /// Adds columns behind those that a table has, empty in every row, and notes them in the side table; one
    /// that it has already stays as it is. Values that the engine fills cannot be added.
    /// @throws Errore 3078 no such table, as Execute; all of them or none
    void AggiungiColonne(const QString& Tabella, const QList<Campo>& Colonne) const;
    /// An index by its name, used by Recordset::Seek; two tables may each have one of the same name. @throws
    /// Errore as Execute
    void CreaIndice(const QString& Tabella, const QString& Nome, const QStringList& Colonne,
                    bool Unico = false) const;
    /// Copies a table with its columns, their description and its rows into another open database:
    /// the classic "SELECT * INTO table IN file FROM table". @throws Errore 3010, 3078, as Execute
    void CopiaTabella(const QString& Tabella, const Database& Destinazione) const;

    /// The number in the file's head by which file managers, which read no tables, know whose it is (the
    /// engine's application_id); 0 for a file that bears none. @throws Errore as Execute
    [[nodiscard]] int Specie() const;
    /// Gives it that number. @throws Errore as Execute
    void ImpostaSpecie(int Numero) const;

    /// Values that the program keeps in the file beside its tables, by name; empty for a file without them.
    /// They stand in the table `_Calcanova`, which no list of tables shows and no recordset opens. A table of
    /// that name that does not keep them as text is another program's, and counts as none.
    /// @throws Errore as Execute, 3047 for more text than any of the program's files keeps
    [[nodiscard]] QMap<QString, QString> Annotazioni() const;
    /// Puts these in the place of whatever is kept.
    /// @throws Errore as Execute, 1000 where the table of that name is another program's; all or nothing
    void Annota(const QMap<QString, QString>& Valori) const;
    /// The same for the values of some names: those that `Valori` lacks go, whatever else is kept stays.
    /// @throws Errore as Annota; all or nothing
    void RitoccaAnnotazioni(const QStringList& Nomi, const QMap<QString, QString>& Valori) const;

    friend class Recordset;
    friend class Transazione;
    friend Database OpenDatabase(const QString&, bool);
    friend Database CreateDatabase(const QString&);
    friend Database CreaDatabasePrivato(const QString&);

private:
    [[nodiscard]] Connessione& PerLeggere() const;   ///< @throws Errore 3024 when nothing is open
    [[nodiscard]] Connessione& PerScrivere() const;  ///< @throws Errore 3027 on a read-only handle

    std::shared_ptr<Connessione> Conn;
    bool Lettura = false;
};

/// Opens an existing database. Writing is possible only when the file's permission bits allow it.
///
/// @throws Errore 3024 no such file, 3343 empty file or no database (truncated ones too), 75 a folder or
/// unreadable
[[nodiscard]] Database OpenDatabase(const QString& Percorso, bool SolaLettura = false);

/// Creates a new, empty database.
/// @throws Errore 3204 when the file exists, 3044 no such folder, 75 the folder refuses writing
[[nodiscard]] Database CreateDatabase(const QString& Percorso);

/// The same for the user alone, from its first byte on; the engine gives the files beside it what it has.
[[nodiscard]] Database CreaDatabasePrivato(const QString& Percorso);

/// True when the column exists. @throws Errore as OpenDatabase
[[nodiscard]] bool EsisteCampo(const QString& Percorso, const QString& Tabella, const QString& Colonna);

/// All or nothing: what was executed since is undone unless Conferma was called. Does not nest (3246).
class Transazione
{
public:
    explicit Transazione(const Database& Db);  ///< @throws Errore as Execute
    ~Transazione();
    Transazione(const Transazione&) = delete;
    Transazione& operator=(const Transazione&) = delete;

    void Conferma();  ///< @throws Errore as Execute; a failure leaves nothing written

private:
    std::shared_ptr<Connessione> Conn;
    std::unique_ptr<Blocco> Aperta;
};
