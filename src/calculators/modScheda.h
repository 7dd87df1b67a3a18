// The sheet of a calculation: head of the office, what was asked, how the result came about, what says so and
// how old the data are; the same as a table that one pastes.
#pragma once

#include "platform/document/superficie.h"

#include <QList>
#include <QString>
#include <QStringList>

/// A column of the table of a sheet.
struct ColonnaScheda
{
    QString Titolo;
    QString Larghezza;  ///< with its unit; those of a table are 17,4 cm together at most
    Allineamento Allinea = Allineamento::Sinistra;

    friend bool operator==(const ColonnaScheda&, const ColonnaScheda&) = default;
};

struct TabellaScheda
{
    QList<ColonnaScheda> Colonne;
    QList<QStringList> Righe;  ///< as many cells as columns
    bool ConTotale = false;    ///< the last row is the sum of the others

    friend bool operator==(const TabellaScheda&, const TabellaScheda&) = default;
};

/// A result with what it rests on; a chain of terms has one for each.
struct SezioneScheda
{
    QString Titolo;  ///< empty: the result speaks for itself
    QString Risultato;
    TabellaScheda Tabella;  ///< no rows: none
    QStringList Note;

    friend bool operator==(const SezioneScheda&, const SezioneScheda&) = default;
};

struct SchedaCalcolo
{
    QString Titolo;
    QStringList Dati;  ///< "Data decorrenza: 20/07/2026", what was asked
    QList<SezioneScheda> Sezioni;
    QStringList Norme;    ///< what says so
    QStringList EtaDati;  ///< how far the data go

    friend bool operator==(const SchedaCalcolo&, const SchedaCalcolo&) = default;
};

/// Composes the sheet, with the office of the session, its logo where the settings give sheets one, and the
/// day of today; what stood on the surface is discarded.
/// @return false when there is no result, which a message says; nothing is composed then
bool StampaScheda(Superficie& vp, const SchedaCalcolo& Scheda);

/// The sheet as rows of a table: what was asked and the results in two columns, then the rows of its tables.
/// Empty for one without a result.
[[nodiscard]] QList<QStringList> RigheScheda(const SchedaCalcolo& Scheda);

/// Rows as plain text, a tab between the cells and "\n" between the rows.
[[nodiscard]] QString TestoRighe(const QList<QStringList>& Righe);
