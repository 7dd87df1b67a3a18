// The bytes of an Access file, read with every length checked: rows, texts, numbers, maps of pages, indices.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>
#include <vector>

/// The two layouts: Jet 3 (Access 97), and Jet 4 with everything later.
enum class Formato { Jet3, Jet4 };

/// A column as the file describes it.
struct ColonnaAccess
{
    int Tipo = 0;        ///< the file's own code
    int Dimensione = 0;  ///< bytes
    int Numero = 0;      ///< its bit in the null mask; deleted columns count
    bool Fissa = false;
    int PostoFisso = 0;      ///< of a fixed column, behind the number of columns
    int PostoVariabile = 0;  ///< of another one, among the row's offsets
    int Scala = 0;           ///< decimals of a decimal number
};

/// One cell: nothing for Null. A truth value has no bytes: it is there or not.
using CellaAccess = std::optional<QByteArrayView>;

/// Takes a row apart.
/// @param Variabili true for a table that has columns of variable length
/// @return a cell for each column, in their order; nothing for a row whose lengths cannot be
[[nodiscard]] std::optional<std::vector<CellaAccess>>
SpezzaRiga(QByteArrayView Riga, Formato Come, const std::vector<ColonnaAccess>& Colonne, bool Variabili);

/// Text as it is stored: Jet 4 has UTF-16, plain or with its Latin letters in one byte, Jet 3 a code page.
[[nodiscard]] QString TestoAccess(QByteArrayView Byte, Formato Come, int Pagina);

/// A cell of a type without memos, as this program's columns take it; an invalid value for Null.
/// @return nothing for a value that no column can hold: too few bytes, no finite number, no day
[[nodiscard]] std::optional<QVariant> ValoreAccess(const CellaAccess& Cella, const ColonnaAccess& Colonna,
                                                   Formato Come, int Pagina);

/// What the twelve bytes of a memo's cell say.
struct MemoAccess
{
    bool Dentro = false;  ///< its bytes follow in the cell
    qint64 Byte = 0;      ///< in all
};
/// Nothing for a cell that is too short.
[[nodiscard]] std::optional<MemoAccess> LeggiMemo(QByteArrayView Cella);
constexpr qsizetype TestataMemo = 12;

/// The pages that a map names, ascending.
/// @param Pagine of the file: of what lies beyond one page is listed, so that it is missed
/// @param LeggiPagina gives the bytes of a page, none where it cannot be read
/// @return nothing for a map of no known kind
[[nodiscard]] std::optional<std::vector<quint32>>
PagineDiMappa(QByteArrayView Mappa, qsizetype BytePerPagina, quint32 Pagine,
              const std::function<QByteArray(quint32 Pagina)>& LeggiPagina);

/// An index as the definition of its table has it.
struct IndiceAccess
{
    QString Nome;
    QList<int> Colonne;  ///< numbers as of ColonnaAccess::Numero
    bool Primario = false;
    bool Unico = false;
};

/// The indices of a table, those that only serve a relation left out.
/// @param Definizione the whole definition: its first page, and what follows the heads of the others
[[nodiscard]] QList<IndiceAccess> IndiciAccess(QByteArrayView Definizione, Formato Come, int Pagina);

/// The last number that the table's counter has given out; 0 for none.
[[nodiscard]] qint64 ContatoreAccess(QByteArrayView Definizione, Formato Come);
