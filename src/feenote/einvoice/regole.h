// The checks of the exchange system that reckon or compare, in two tables.
#pragma once

#include "feenote/einvoice/esame.h"

/// A check of the exchange system: one row of the table.
struct RegolaSdi
{
    QStringView Codice;
    GravitaControllo Gravita = GravitaControllo::Avviso;
    void (*Esegui)(Esame& File) = nullptr;
};

/// Those on the sums and codes of each document.
void RegoleImporti(Esame& File);
/// Those on the parties, the kind of document and the file as a whole.
void RegoleSoggetti(Esame& File);
