// The blocks that documents share: office head, section titles, tables of fees, expenses, payments.
#pragma once

#include "feenote/modTotali.h"
#include "platform/superficie.h"

#include <QString>

#include <vector>

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
    int Campo = 1;      ///< what it shows: 0 payment text, 1 text, 2 quantity, 3 amount, 4 exempt, 5 triple, 999 nothing
};

enum class TabellaStampa { Onorari = 1, Spese = 2, Acconti = 3 };

/// State of one composition, begun anew by Anteprima.
struct StatoStampa
{
    int ContaSezioni = 0;
    SommeAcconti Acconti;  ///< totals of the payments, set by StampaCorpo
};

[[nodiscard]] std::vector<DescrColonna> PreparaColonne(const Parcella& Nota, TabellaStampa Quale);

void IntestazioneStudio(Superficie& vp, const Parcella& Nota, int Tipo);
void TitoloSezione(Superficie& vp, StatoStampa& Stato, const QString& Categ, const QString& Autor,
                   const QString& Valore);
void StampaOnorari(Superficie& vp, const Parcella& Nota, const TabellaRighe& Righe, bool SenzaTotale);
void StampaSpese(Superficie& vp, const Parcella& Nota, const TabellaRighe& Righe, bool SenzaTotale);
void StampaCorpo(Superficie& vp, StatoStampa& Stato, const Parcella& Nota, int Tipo);
