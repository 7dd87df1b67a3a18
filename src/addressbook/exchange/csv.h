// Rows separated by commas, as Italian spreadsheets write them; platform/base/fogliocsv.h writes ours.
#pragma once

#include "addressbook/exchange/tabellaestranea.h"
#include "addressbook/exchange/testoestraneo.h"

#include <QByteArray>
#include <QChar>
#include <QList>
#include <QStringList>

#include <vector>

/// How a file is to be read.
struct OpzioniCsv
{
    QChar Separatore;  ///< between cells; null: the one of ";", tab and "," that gives even rows
    CodificaTesto Codifica = CodificaTesto::Automatica;

    friend bool operator==(const OpzioniCsv&, const OpzioniCsv&) = default;
};

/// What a file holds. Rows may be of different lengths; those without any text are left out.
struct RigheCsv
{
    std::vector<QStringList> Righe;
    std::vector<int> Linee;  ///< where each begins in the file, from 1
    int Colonne = 0;         ///< cells of the longest row
    QChar Separatore;
    CodificaTesto Codifica = CodificaTesto::Utf8;
};

/// Reads rows. A cell in quotes may hold separators, line breaks and doubled quotes; quotes inside a cell
/// that does not begin with one stand for themselves. A first line "sep=;" names the separator. The
/// apostrophe that CellaCsv puts before a formula is taken away.
/// @throws Errore NumeroFileRifiutato for what is no text, ends inside quotes, or passes the limits;
/// Interrotto when `Prosegui` stopped it
[[nodiscard]] RigheCsv LeggiCsv(const QByteArray& Byte, const OpzioniCsv& Come = {},
                                const AvanzamentoLettura& Prosegui = {});
