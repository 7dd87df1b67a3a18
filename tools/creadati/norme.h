// The norms in force: the tables norme_*.csv (dati/FONTI.md tells where the figures come from) in, Norme.mdb
// out.
//
//   norme_sospensioni.csv   the summer suspension by period
//   norme_feste.csv         holidays by period
//   norme_materie.csv       matters that the suspension spares
//   norme_regole.csv        rules without a figure, with what says so
//   norme_termini.csv       recurring terms
//   norme_catene.csv        terms that are computed together
//   norme_contributo.csv    the court filing fee by date
//   norme_avvisi.csv        what is not known of a time
//   norme_stato.csv         the day up to which the norms are known
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QVariant>

/// A table of the text and its place in the database.
struct TabellaDiNorme
{
    QString Nome;
    QStringList Colonne;
    QList<QVariantList> Righe;
};

struct TabelleNorme
{
    QList<TabellaDiNorme> Tabelle;
    QDate NoteFinoAl;
};

/// Reads the tables and checks each cell.
/// @throws Errore 53 a table is missing, 5 it is refused: the sentence names file, row and column
[[nodiscard]] TabelleNorme LeggiNorme(const QString& Cartella);

/// Creates the database, sealed, and reads it back as the program will: what rows are to one another is
/// checked there.
/// @throws Errore as CreateDatabase; 5 the program would refuse it
void ScriviNorme(const TabelleNorme& Dati, const QString& Percorso);
