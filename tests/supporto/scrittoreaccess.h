// Small files in Access format, written from what is known of the format: for the tests of whatever reads
// one.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVariant>

#include <optional>

/// The layouts of the files; the last ones differ in their head alone.
enum class EdizioneAccess { Jet3, Jet4, Ace2007, Ace2019 };

/// Codes of columns that this program has no type for.
namespace tipoaccess {
constexpr int Booleano = 1, Byte = 2, Intero = 3, Lungo = 4, Valuta = 5, Singolo = 6, Doppio = 7, Data = 8,
              Binario = 9, Testo = 10, Ole = 11, Memo = 12, Guid = 15, Decimale = 16, Complesso = 18,
              Grande = 19;
}

struct ColonnaScritta
{
    QString Nome;
    int Tipo = tipoaccess::Testo;
    int Caratteri = 50;  ///< of a text
    QString Descrizione{};
    bool Contatore = false;
    int Scala = 2;  ///< decimals of a decimal number
};

struct IndiceScritto
{
    QString Nome;
    QList<int> Colonne;  ///< places of its columns
    bool Primario = false;
    bool Unico = false;
};

/// A row: a value for each column. Null is an invalid one; a decimal number is given as a whole number of its
/// smallest units, bytes as QByteArray, whatever a column is.
using RigaScritta = QList<QVariant>;

struct TabellaScritta
{
    QString Nome;
    QList<ColonnaScritta> Colonne{};
    QList<RigaScritta> Righe{};
    QList<IndiceScritto> Indici{};
    quint32 UltimoContatore = 0;
    QList<int> Tolte{};       ///< rows that were deleted
    QList<int> Traslocate{};  ///< rows that have outgrown their page
    bool DiSistema = false;
    bool Collegata = false;
    /// The list of its pages stands on pages of its own, as in large files.
    bool MappaGrande = false;
    /// Rows that the definition speaks of; none: those that are there.
    std::optional<int> RigheDichiarate{};
};

struct FileScritto
{
    EdizioneAccess Edizione = EdizioneAccess::Jet4;
    QList<TabellaScritta> Tabelle{};
    quint32 Chiave = 0;       ///< the key of a file that was encoded
    int PaginaCodici = 1252;  ///< of the texts of Jet 3
};

/// The bytes of the file.
[[nodiscard]] QByteArray ScriviAccess(const FileScritto& Come);
/// The same on the disk. @return the path
QString ScriviAccess(const QString& Percorso, const FileScritto& Come);

/// What a native database holds, to be written as an Access file: tables, columns, descriptions, rows.
[[nodiscard]] FileScritto AccessDa(const QString& Nativo, EdizioneAccess Edizione = EdizioneAccess::Jet4);

/// Bytes of one page of such a file.
[[nodiscard]] qsizetype BytePerPagina(EdizioneAccess Edizione);
