// A cursor over the rows of a table or of a query.
#pragma once

#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct Campo;
class Connessione;
class Istruzione;

/// The row that Recordset::Scorri is at; good while its function runs. Columns count from 0, as they were
/// asked for.
class RigaScorsa
{
public:
    [[nodiscard]] qint64 Chiave() const;
    /// The text as it is stored, in UTF-8; empty for Null.
    [[nodiscard]] QByteArrayView Utf8(int Colonna) const;
    /// Bytes of a text as it is stored, 0 for anything else: nothing is copied.
    [[nodiscard]] qsizetype Byte(int Colonna) const;
    [[nodiscard]] QVariant Valore(int Colonna) const;

private:
    friend class Recordset;
    RigaScorsa(const Istruzione& DiRighe, const QList<Campo>& Chieste) : Righe(DiRighe), Colonne(Chieste) {}

    const Istruzione& Righe;
    const QList<Campo>& Colonne;
};

/// Rows with one current row. The keys are read when it is opened, the rows one by one as they are
/// shown; no lock is held between calls. Copies share the cursor; Clone gives an own cursor over the
/// same keys. Default-constructed: no rows, Eof is true.
///
/// Values: text QString, numbers int or double, truth values bool, dates QDate (QDateTime with a time),
/// Null an invalid QVariant.
class Recordset
{
public:
    Recordset() = default;

    [[nodiscard]] bool Aperto() const;
    /// Behind the last row, or no row at all. (The classic name is a macro of the C library.)
    [[nodiscard]] bool Eof() const;
    [[nodiscard]] bool Bof() const;
    [[nodiscard]] int RecordCount() const;

    // Moves. Past an end they stop behind it; in an empty set they do nothing.
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    /// The value of a column of the current row, whatever the case of its name.
    /// @throws Errore 3021 no current row, 3265 no such column, 3167 the row is gone
    [[nodiscard]] QVariant Value(const QString& Colonna) const;
    /// The same, with another value for Null.
    [[nodiscard]] QVariant Value(const QString& Colonna, const QVariant& SeNull) const;
    /// Sets a column of the row being added or edited.
    /// @throws Errore 3020 neither AddNew nor Edit, 3163 text longer than its column (with its name),
    ///         3421 a value of the wrong type (with the column's name), 3265 no such column
    void ImpostaValue(const QString& Colonna, const QVariant& Valore);
    [[nodiscard]] QList<Campo> Campi() const;

    /// Moves to the first row, from the start or behind the current one, that meets the criterion; when
    /// none does, NoMatch is true and the current row stays.
    ///
    /// Criterion: "<name> <operator> <value>" joined by AND / OR, parentheses allowed; operators = <> < >
    /// <= >= "[Not] Like" "Is [Not] Null", NOT in front of any; values are a string in single or double
    /// quotes (doubled inside), a number with a point, #mm/dd/yyyy#, DateValue('gg/mm/aaaa'), Null, True,
    /// False; Like patterns take * ? # and [lists]. Text compares without regard to case (À equals à, à
    /// differs from a); a text column against a number compares as numbers. "= Null" and "<> Null" ask for
    /// absence and presence; "" is no absence.
    /// @throws Errore 3077 for anything else, 3070 no such column
    void FindFirst(const QString& Criterio);
    void FindNext(const QString& Criterio);
    void FindLast(const QString& Criterio);
    void FindPrevious(const QString& Criterio);
    [[nodiscard]] bool NoMatch() const;

    /// The index for Seek, by its name (case plays no part); the rows of the table are brought into its order
    /// and the first becomes current. @throws Errore 3015 no such index, or not opened as a table
    void ImpostaIndex(const QString& Nome);
    /// The nearest row whose first key column stands in this relation to the value: the first in index order
    /// for "=", ">=", ">", the last for "<=", "<". A QVariantList gives the first columns of a longer key.
    /// Text compares without regard to case. When there is none, NoMatch and Eof are true.
    /// @throws Errore 3019 no index set, 5 another operator
    void Seek(const QString& Operatore, const QVariant& Chiave);

    /// The current row's place, to be given back later, to a clone too. @throws Errore 3021
    [[nodiscard]] QVariant Bookmark() const;
    /// @throws Errore 3159 for a place that is not of this set
    void ImpostaBookmark(const QVariant& Segno);
    /// Place of the current row among the rows, from 0;
    /// -1 when there is no current row.
    [[nodiscard]] int AbsolutePosition() const;
    /// @throws Errore 3021 outside the rows
    void ImpostaAbsolutePosition(int Posto);
    [[nodiscard]] Recordset Clone() const;  ///< an own cursor, on the first row and without an index

    /// Reads columns of the table's rows from the file in one go, in the order of their keys (which are the
    /// bookmarks), and not those of this set alone. The cursor stays.
    /// @param Dopo the key behind which to begin, none at the first row
    /// @param Massimo rows at most, so that nobody waits for the lock of a long reading
    /// @return the last key read, none at the end of the table
    /// @throws Errore 3265 no such column
    std::optional<qint64> Scorri(const QStringList& Colonne, std::optional<qint64> Dopo, int Massimo,
                                 const std::function<void(const RigaScorsa& Riga)>& Prendi) const;
    /// An own cursor over those rows of this set that have one of the keys, in this set's order.
    /// @param Chiavi ascending
    [[nodiscard]] Recordset Ristretto(const std::vector<qint64>& Chiavi) const;

    /// The cells of the current row as the file holds them, for Rimetti. @throws Errore 3021, 3167
    [[nodiscard]] QVariantList Grezza() const;
    /// Puts a row back that Grezza has given, with its key where the key is a counter; it becomes the current
    /// and last one of the set. @throws Errore as Update
    void Rimetti(const QVariantList& Celle);

    // Changes of one row. Update writes at once; a new row becomes the current and last one of the set. A
    // move drops what was being added or edited. After Delete there is no current row (3167) until a move:
    // MoveNext goes to the row that followed, MovePrevious to the one before. @throws Errore 3027 read-only
    // or a fixed copy, 3022 duplicate key, 3167 the row is gone, 3026 disk full, 3260 locked
    void AddNew();
    void Edit();
    /// 0 nothing is being written, 1 the current row is edited, 2 a new row.
    [[nodiscard]] int EditMode() const;
    /// True when a column of the row being added or edited has been set.
    [[nodiscard]] bool Toccato() const;
    /// True when somebody has written to the row since Edit, which read it. A new row is nobody else's.
    /// @throws Errore 3020 nothing is being written, 3167 the row is gone
    [[nodiscard]] bool CambiatoDaAltri() const;
    /// @param Prima runs in one step with the writing of a new row, in which nobody else writes: what it
    /// reads of the file still holds when the row stands there. Of a failure the row stays in writing
    void Update(const std::function<void()>& Prima = {});
    void CancelUpdate();
    void Delete();

    /// Forgets the rows and lets go of the database.
    void Close();

private:
    struct Dati;
    explicit Recordset(std::shared_ptr<Dati> Nuovo);
    [[nodiscard]] Dati& Corrente() const;  ///< @throws Errore 3021 when nothing is open
    std::shared_ptr<Dati> Stato;
    friend class Database;
};
