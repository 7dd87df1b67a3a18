// The printed sheet of the two calculators of terms.
#pragma once

#include "calculators/modTerminiSeq.h"
#include "platform/document/superficie.h"

/// Composes the sheet of a term; what stood on the surface is discarded.
/// @param Dati the boxes as they stand, the start date as typed
/// @param Risultato caption of the result
/// @param Avviso line under it, empty for none
/// @return false when there is no result, which a message says; nothing is composed then
bool StampaTermine(Superficie& vp, const DatiTermine& Dati, const QString& Risultato,
                   const QString& Avviso = {});

/// The same of a chain.
/// @param Articolo position in Articoli()
/// @throws Errore 9 no such article
bool StampaSequenza(Superficie& vp, const QString& Udienza, int Articolo, const OpzioniTermine& Opzioni,
                    const QString& Risultato, const QString& Avviso = {});
