// The sheet of terms with their road, printed, copied or shown: what each date rests on, step by step.
#pragma once

#include "calculators/modScheda.h"
#include "calculators/strada.h"

#include <QStringList>

/// A term on the sheet.
struct ParteStrada
{
    QString Titolo;     ///< what the term is for; empty: the result speaks for itself
    QString Risultato;  ///< the date in words
    Strada Passi;
    QStringList Note;  ///< lines under the table

    friend bool operator==(const ParteStrada&, const ParteStrada&) = default;
};

/// The sheet of terms with their road.
/// @param Dati lines on what was asked, above the first term
/// @param EtaDati how far the norms are known; empty where the program's own count
[[nodiscard]] SchedaCalcolo SchedaStrada(const QStringList& Dati, const QList<ParteStrada>& Parti,
                                         const QStringList& EtaDati = {});

/// The same as text, as one pastes it into a letter: titles, results, rows with tabs, notes.
[[nodiscard]] QString TestoParti(const QList<ParteStrada>& Parti);
