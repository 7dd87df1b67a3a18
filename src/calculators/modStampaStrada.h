// The printed sheet of terms with their road: what each date rests on, step by step.
#pragma once

#include "calculators/strada.h"
#include "platform/document/superficie.h"

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

/// Composes the sheet; what stood on the surface is discarded.
/// @param Dati lines on what was asked, above the first term
/// @return false when there is no term, which a message says; nothing is composed then
bool StampaStrada(Superficie& vp, const QStringList& Dati, const QList<ParteStrada>& Parti);

/// The same as text, as one pastes it into a letter: titles, results, rows with tabs, notes.
[[nodiscard]] QString TestoParti(const QList<ParteStrada>& Parti);
