// What the browser of the address book knows of an archive: its columns, their texts, what a choice hands
// over.
#pragma once

#include "platform/database/database.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <optional>

/// A column of the browser, as the description of a field asks for it.
struct ColonnaRubrica
{
    QString Nome = {};  ///< of the field
    QString Titolo = {};
    int Size = 0;          ///< width in characters
    QString Formato = {};  ///< of numbers and dates; empty: the plain text
    QString Maschera = {};
    TipoCampo Tipo = TipoCampo::Testo;

    friend bool operator==(const ColonnaRubrica&, const ColonnaRubrica&) = default;
};

/// The column that a field asks for; none for one that hides itself.
///
/// The description is pairs "key=value" between commas: "V" "Y" shows the column (any other value hides it),
/// "L" its heading, "S" its width in characters, "F" its format, "M" its mask. Without them the column is
/// shown, is called as the field, and is as wide as the text field's size, 10 for a date, 1 for a truth
/// value, 0 for the rest. Blanks around keys and values do not count, unknown keys and an "S" that is no
/// number are passed over.
[[nodiscard]] std::optional<ColonnaRubrica> ColonnaDi(const Campo& Descritto);
/// Those of all fields that show, in their order.
[[nodiscard]] QList<ColonnaRubrica> ColonneRubrica(const QList<Campo>& Campi);

/// Width of a column in twips: below 3 characters 800, below 8 1000, below 14 2000, else 3000.
[[nodiscard]] int LarghezzaTwip(int Size);

/// The text of a cell, by the column's format where it has one that can be followed; truth values are "Sì"
/// and "No".
[[nodiscard]] QString TestoCella(const QVariant& Valore, const ColonnaRubrica& Colonna);

/// The archive that is meant: an empty one is the file "rubrica" of the program's folder.
[[nodiscard]] QString FileRubrica(const QString& DataSource);
/// The archive is the one of the settings, to which the keys in the notes belong.
[[nodiscard]] bool DellaSessione(const QString& DataSource);

/// "SELECT * FROM table", with the order of a column where one is given. Text is ordered without regard to
/// case and accents.
[[nodiscard]] QString SqlRubrica(const QString& Tabella);
[[nodiscard]] QString SqlRubrica(const QString& Tabella, const ColonnaRubrica& Per, bool Discendente);

/// True when the rows have a column of this name, whatever its case.
[[nodiscard]] bool HaColonna(const QList<Campo>& Campi, const QString& Nome);

/// True for the field by which rows are known to the notes: "ID", and any counter. An archive that comes from
/// elsewhere may have it as a plain number.
[[nodiscard]] bool EChiave(const Campo& Descritto);
/// The highest key of the rows of a table, 0 for none. @throws Errore as Recordset::Scorri
[[nodiscard]] qint64 UltimaChiave(const Recordset& Righe);

/// What a choice hands over of the current row: the values of the columns, in order. Where the first two of
/// them are not `ID` and `Nominativo` these are put in front.
/// @throws Errore 3265 in an archive without them, 3021, 3167
[[nodiscard]] QVariantList ValoriScelti(const Recordset& Riga, const QList<ColonnaRubrica>& Colonne);

/// "12 di 1.000" of rows that a filter has left, else "1.000 nominativi".
[[nodiscard]] QString FraseConto(int Mostrate, int Tutte, bool Filtrate);
