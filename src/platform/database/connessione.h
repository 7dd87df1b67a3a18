// One open SQLite file and its statements; what database.cpp and recordset.cpp stand on.
#pragma once

#include "platform/database/database.h"
#include "platform/system/permessi.h"

#include <QString>
#include <QVariant>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

struct Errore;

/// The error of a file that cannot be opened or read. Its description names the file: of several archives the
/// user must know which.
[[nodiscard]] Errore ErroreDelFile(int Numero, const QString& Percorso);
/// The same for a table that the file does not have.
[[nodiscard]] Errore ErroreSenzaTabella(const QString& Percorso);

/// The checks at the door of a file.
/// @return true for one that another tool keeps with a write-ahead log
/// @throws Errore 3024 no such file, 75 a folder or unreadable, 3343 no database (truncated ones too), or a
/// journal beside it that stays and does not fit it (see GiornaleAccanto)
[[nodiscard]] bool ControllaPrimaDiAprire(const QString& File);
/// Whether a write that was cut off must be undone before the file can be read. Of one that goes on nothing
/// is said: its journal is in use.
[[nodiscard]] bool DaRisanare(const QString& File);

/// An open file, or a private database in memory.
class Connessione
{
public:
    enum class Modo {
        SolaLettura,
        Scrittura,
        Nuovo,
        Memoria,
        Elenco,      ///< for one look: read-only, without the functions of the program's queries
        Immutabile,  ///< the same for a file that nobody changes meanwhile: no lock, no file beside it
        Ferma,       ///< read-only, for a file that nobody changes meanwhile: no lock, no file beside it
    };

    /// Opens and protects the connection; the file itself is not looked at yet.
    /// @throws Errore 75 when the system refuses it, 7 out of memory
    Connessione(const QString& Percorso, Modo Apertura);
    Connessione(const Connessione&) = delete;
    Connessione& operator=(const Connessione&) = delete;

    /// The connection of a file, shared with everybody who has it open.
    ///
    /// It is opened for writing whenever the permission bits allow, so that a reader who came first does
    /// not hinder a writer. @throws Errore as OpenDatabase
    [[nodiscard]] static std::shared_ptr<Connessione> Condivisa(const QString& Percorso);
    /// The connection of a file just made. @throws Errore as CreateDatabase
    [[nodiscard]] static std::shared_ptr<Connessione> Nuova(const QString& Percorso, Lettori Chi);

    [[nodiscard]] const QString& Percorso() const { return File; }
    [[nodiscard]] bool Scrivibile() const { return PuoScrivere; }
    /// Counts every write and every undoing: a row kept aside is good as long as this stands still.
    [[nodiscard]] quint64 Scritture() const { return Contate; }
    void NotaScrittura() { ++Contate; }
    /// The same with what other programs have written. @throws Errore 3260 locked
    [[nodiscard]] quint64 Versione() const;

    /// Runs one statement and throws its rows away. @return rows changed
    int Esegui(const QString& Sql, const QVariantList& Valori = {});
    [[nodiscard]] bool InTransazione() const;
    /// Undoes the open transaction; never throws, since it runs while errors fly.
    void Annulla() noexcept;
    [[nodiscard]] qint64 UltimaChiave() const;
    /// The file under this name is no longer the one that is open: deleted or replaced.
    [[nodiscard]] bool Spostato() const;

    /// The one place where the engine's codes become errors.
    void Verifica(int Esito) const;
    [[nodiscard]] sqlite3* Motore() const { return Db.get(); }

private:
    struct Chiudi
    {
        void operator()(sqlite3* Db) const noexcept;
    };
    void Proteggi();
    void Prepara();
    void GiornaleDaCancellare();
    void AttendiBlocchi(int Millisecondi);

    QString File;
    bool PuoScrivere = false;
    quint64 Contate = 0;
    std::unique_ptr<sqlite3, Chiudi> Db;
};

/// Takes rows while the engine walks them: `raccogli(?, key, cell)` in a WHERE clause calls it for each row,
/// which costs far less than stepping from row to row.
class RaccoltaTesti
{
public:
    virtual ~RaccoltaTesti() = default;
    enum class Cella { Nulla, Testo, Altro };
    /// @param Utf8 good while this runs
    /// @return true stops the walk at this row: the statement has it
    virtual bool Prendi(qint64 Chiave, Cella Che, QByteArrayView Utf8) = 0;
};

/// A prepared statement. It must not outlive its connection.
class Istruzione
{
public:
    /// @throws Errore 3144, 3078, 3061 (wrong number of values too), 3142 more than one statement
    Istruzione(const Connessione& Conn, const QString& Sql, const QVariantList& Valori = {});

    /// Binds a value to a "?", counted from 1. @throws Errore 3421 for a number that is not finite
    void Lega(int Posto, const QVariant& Valore);
    /// Binds what `raccogli` hands the rows to. It must live as long as the statement runs.
    void Lega(int Posto, RaccoltaTesti& A);
    /// Binds a cell of another statement's row as it is stored.
    void LegaCella(int Posto, const Istruzione& Da, int Colonna);
    /// @return true on a row, false at the end; @throws Errore as Database::Execute
    bool Avanza();
    /// Ready to run again; it holds no lock any more.
    void Azzera() noexcept;

    [[nodiscard]] bool Legge() const;  ///< true when it cannot write
    [[nodiscard]] int Colonne() const;
    [[nodiscard]] QString NomeColonna(int Colonna) const;
    [[nodiscard]] QString TipoDichiarato(int Colonna) const;

    // The cells of the current row.
    [[nodiscard]] qint64 Intero(int Colonna) const;
    [[nodiscard]] QString Testo(int Colonna) const;
    [[nodiscard]] bool ENullo(int Colonna) const;
    /// The text in UTF-8; the view is good until the next row.
    [[nodiscard]] QByteArrayView Utf8(int Colonna) const;
    /// Bytes of a text, 0 for a number or Null.
    [[nodiscard]] qsizetype Byte(int Colonna) const;
    /// The cell as it is stored, whatever its column is declared as.
    [[nodiscard]] QVariant Grezzo(int Colonna) const;
    /// The cell as a column of this type gives it (the rules stand at Recordset::Value).
    [[nodiscard]] QVariant Valore(int Colonna, TipoCampo Tipo) const;
    /// The type that suits the stored value; none for Null.
    [[nodiscard]] std::optional<TipoCampo> TipoSpontaneo(int Colonna) const;

private:
    struct Finisci
    {
        void operator()(sqlite3_stmt* Istr) const noexcept;
    };
    const Connessione* Conn = nullptr;
    std::unique_ptr<sqlite3_stmt, Finisci> Istr;
};

/// All or nothing: a transaction, or a savepoint when one is open. Undone unless confirmed.
class Blocco
{
public:
    explicit Blocco(Connessione& Conn);  ///< @throws Errore 3260 locked
    ~Blocco();
    Blocco(const Blocco&) = delete;
    Blocco& operator=(const Blocco&) = delete;

    void Conferma();  ///< @throws Errore 3026 and others; a failure leaves nothing written

private:
    Connessione& Conn;
    bool Annidato = false;
    bool Aperto = true;
};

/// One look at the file for several queries: cheaper, and nobody writes in between. Ends with its scope,
/// when the statements of that scope must have ended.
class Sguardo
{
public:
    explicit Sguardo(Connessione& Conn);
    ~Sguardo();
    Sguardo(const Sguardo&) = delete;
    Sguardo& operator=(const Sguardo&) = delete;

private:
    Connessione& Conn;
    bool Mio = false;  ///< no transaction was open
};

/// What the pointers that `raccogli` takes are called.
inline constexpr auto TipoRaccolta = "RaccoltaTesti";

/// The collation of find criteria and of Seek: case plays no part, accents do.
inline constexpr auto Collazione = "SenzaMaiuscole";

/// The collation of lists that people read: neither case nor accents play a part.
inline constexpr auto CollazionePiana = "SenzaAccenti";

/// Registers the collations and the functions of the program's queries on a connection:
/// `raccogli` is told at RaccoltaTesti, `corrisponde(pattern, value)` is Like, `datevalue(text)` reads a
/// day/month/year.
void RegistraFunzioni(const Connessione& Conn);

// ---- The schema (database_schema.cpp) ---------------------------------------------------------------

/// The statement that makes the side table `_Campi` where it is missing.
[[nodiscard]] QString SqlTabellaCampi();
/// The table's name as the file spells it, whatever the case given; empty when there is none.
[[nodiscard]] QString NomeVero(Connessione& Conn, const QString& Tabella);
/// The columns of a table by its true name.
[[nodiscard]] QList<Campo> LeggiCampi(Connessione& Conn, const QString& Tabella);
/// The word for the engine's row key that no column hides; empty when the table has no such key.
[[nodiscard]] QString ChiaveRiga(Connessione& Conn, const QString& Tabella, const QList<Campo>& Colonne);
/// The name that an index goes by in the file. SQLite keeps them in one space for all tables, while here
/// two tables may each have an index `Dal`.
[[nodiscard]] inline QString NomeIndice(const QString& Tabella, const QString& Nome)
{
    return Tabella + QLatin1Char('.') + Nome;
}
