// The rows of the address book as a file for other programs.
#pragma once

#include "addressbook/modRubrica.h"

#include <QList>
#include <QString>

#include <functional>

enum class FormatoEsporta { Csv, Vcard };

/// Of how many rows a file is made.
struct NominativiEsportati
{
    int Quanti = 0;     ///< rows that stand in it
    int SenzaNome = 0;  ///< rows that stand in no card, having no name
};

/// The form that a file's name asks for: cards for ".vcf", else rows.
[[nodiscard]] FormatoEsporta FormatoDi(const QString& File);
/// The name with the ending of its form, where it has none.
[[nodiscard]] QString ConEstensione(const QString& File);

/// Writes rows of a table into a file that this user alone may read, with the columns that the browser shows,
/// but for the archive's own key. A spreadsheet's have the headings in the first row; cards are of those rows
/// alone that have a name. Rows are read and written in pieces; the former file stays until the new one is
/// whole.
/// @param Posti of the rows among these, all of them where there is none
/// @param Prosegui asked now and then; false stops it, and nothing is written
/// @throws Errore as Recordset::Value and FileAPezzi
NominativiEsportati EsportaNominativi(const QString& File, const Recordset& DiRighe, FormatoEsporta Forma,
                                      const QList<int>& Posti = {},
                                      const std::function<bool(int Fatte, int Tutte)>& Prosegui = {});

/// "2 senza nome, tralasciati"; empty where none was left out.
[[nodiscard]] QString FraseTralasciati(const NominativiEsportati& Esportati);
