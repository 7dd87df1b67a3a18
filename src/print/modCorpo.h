// The body that documents share: section titles, tables of fees, expenses and payments.
#pragma once

#include "feenote/modTotali.h"
#include "platform/document/superficie.h"

#include <QString>

#include <vector>

/// What a column of a table of lines shows. Any other value shows the text of the line's column of that
/// number. In the table of payments 2, 3 and 4 are the three amounts.
enum CampoStampa {
    CampoAcconto = 0,  ///< text of a payment
    CampoTesto = 1,
    CampoQuantita = 2,
    CampoImporto = 3,
    CampoEsente = 4,   ///< exempt amount of an expense
    CampoTripla = 5,   ///< medium, minimum and maximum
    CampoNullo = 999,  ///< nothing
};

/// A column of a table of lines.
struct DescrColonna
{
    QString Titolo;
    QString Larghezza;  ///< "9cm"
    Allineamento Allinea = Allineamento::Sinistra;
    QString FontName;
    int FontSize = 10;  ///< points
    bool Corsivo = false;
    bool Grassetto = false;
    int Campo = CampoTesto;  ///< a CampoStampa or the number of a line's column

    friend bool operator==(const DescrColonna&, const DescrColonna&) = default;
};

enum class TabellaStampa { Onorari = 1, Spese = 2, Acconti = 3 };

/// State of one composition, begun anew by Anteprima.
struct StatoStampa
{
    int ContaSezioni = 0;
    SommeAcconti Acconti;  ///< totals of the payments, set by StampaCorpo
};

/// Columns of a table of lines; the triple stands among them while its switch is on and enabled.
[[nodiscard]] std::vector<DescrColonna> PreparaColonne(const Parcella& Nota, TabellaStampa Quale);

/// Appends a row to the open table and returns its number, from 1. @throws Errore 5 without an open table
int AggiungiRigaTab(Superficie& vp);

/// One numbered title. Out-of-court matters have no authority, penal ones no value; told by the first
/// letters of the category.
void TitoloSezione(Superficie& vp, StatoStampa& Stato, const QString& Categ, const QString& Autor,
                   const QString& Valore);

/// The decree by which fees were reckoned, where it is one that documents name and there are fees.
[[nodiscard]] QString FraseTariffa(const Decreto& Legge, const TabellaRighe& Onorari);

/// Tables of fees and of expenses; nothing for a table without rows.
/// @param SenzaTotale the lines are the associated note's: its totals stand below them, not this note's
/// @throws Errore 9 for lines with fewer columns than their table has
void StampaOnorari(Superficie& vp, const Parcella& Nota, const TabellaRighe& Righe, bool SenzaTotale);
void StampaSpese(Superficie& vp, const Parcella& Nota, const TabellaRighe& Righe, bool SenzaTotale);
/// Fees and expenses of this note and of the associated one, each with its title and decree, then the
/// payments of both, in euro, where the document shows them. Leaves the payments' totals in the state.
void StampaCorpo(Superficie& vp, StatoStampa& Stato, const Parcella& Nota, int Tipo);

/// Ends a table of lines, which has no border.
void ChiudiTabella(Superficie& vp);
