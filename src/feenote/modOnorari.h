// Honoraria: from the tariff tables to the lines of a note.
//
// Amounts of civil and criminal items are read as they stand in the tables of the note's decree, those of
// out-of-court items are formulas in the value of the case. A line has the decimals of the decree: whole
// euro, ties to even, by D.m. 140/2012.
#pragma once

#include "feenote/parcella.h"

/// What AddModOnor writes. Amounts in euro, quantity included, before the variation.
struct DatiOnorario
{
    double Quant = 1.0;
    int NVoce = 0;
    QString Descr;
    double Importo = 0.0;
    double Medio = 0.0;
    double Min = 0.0;
    double Max = 0.0;
    int VarPerc = 0;   ///< signed percent
    int AumParti = 0;  ///< what further parties add, percent; the variation is of what they give
    QVariant CodVoce;  ///< value of the catalogue's key column
};

/// Row code of AddModOnor for a new line.
constexpr int RigaNuova = -1;
/// Added to a row's number: rewrite it and refresh its base columns too.
constexpr int RigaConBase = 1000;

/// Writes a line: the base columns hold the amounts without the variation, the others with it, each
/// rounded once. The date is emptied.
///
/// @param Riga RigaNuova inserts where RowIns says; 1000 or more rewrites row Riga - 1000 with its base
///        columns; below that it rewrites the row and leaves the base columns
/// @param Corrente current row of the grid, for RowIns
/// @return the row written
/// @throws Errore 9 when the row does not exist
int AddModOnor(Parcella& Nota, const DatiOnorario& Dati, int Riga, std::optional<int> Corrente = {});

/// True for an item of a category that a declared decree has no amount for: one of the bracket's three is
/// Null; out of court, where the medium is reckoned, both ends are. The other decree foresees every item:
/// there a Null counts 0. Never true for the free item. @throws Errore 3265 when the table has no such column
[[nodiscard]] bool NonPrevista(const Decreto& Legge, QStringView Categ, const Recordset& Voce, int Scaglione);

/// The amount halfway between minimum and maximum, to 2 decimals away from zero; 0 unless Max is above 0.
[[nodiscard]] double Medio(double Min, double Max);

/// Opens the catalogues of the note's category and, when a parameter has changed since, recalculates the
/// lines; a formula that fails there is reported, and RicalcoloNecessario is cleared all the same, while
/// RigheDaRicalcolare stays.
/// @throws Errore when the catalogues cannot be read
void LoadOnoDir(Parcella& Nota, Catalogo& Voci);

/// True when the quantities of the lines are to be seen: one of them is not 1, or one of the items is charged
/// by a quantity.
[[nodiscard]] bool ChiedonoQuantita(const Parcella& Nota, const Catalogo& Voci);

/// Entering the honoraria: LoadOnoDir, then the standard items of an authority that has them, into an
/// empty note. @return rows inserted
int EntraOnorari(Parcella& Nota, Catalogo& Voci);

/// Inserts every item of the catalogue with NVoce below "900" (as text), in catalogue order, at the end. One
/// for which the tariff has no amount is passed over; that none of them has one is told.
int PrecaricaOnorari(Parcella& Nota, Catalogo& Voci);

/// Turns the catalogue's current row into a line, as a double click does: refuses what the decree does
/// not allow, asks about a second insertion and for the quantity.
///
/// @param Quantita given beforehand by a description: nothing is asked then, not even about a second
/// insertion,
///        and it goes through no rounding of its own
/// @return the row written, empty when refused or abandoned
/// @throws Errore when the catalogue cannot be read
std::optional<int> InserisciOnorario(Parcella& Nota, const Catalogo& Voci, std::optional<int> Corrente = {},
                                     std::optional<double> Quantita = {});

/// Recomputes every tariff line from the catalogue at the present parameters and variation. Lines from
/// NVoce 900 up stay; an item that the authority lacks, or that has no amount in the bracket, is told and
/// stays.
/// @throws Errore with the evaluator's code and text when a formula fails; lines before it stand
void RicalcolaOnorari(Parcella& Nota, const Catalogo& Voci);

/// Name of the information sheet of an item: first letter of the category + key as "000" + ".htm". The items
/// of two decrees have no keys in common.
[[nodiscard]] QString FileScheda(const QString& CodCateg, const QVariant& Chiave);
