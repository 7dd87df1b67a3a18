// The tables of a fee note. They stand empty in parcelle.mdb; each save copies their columns.
#pragma once

#include "creadati/scrittura.h"

/// ParcellaParam, ParcellaRighe and ParcellaAcconti, columns in the order in which a note writes them.
[[nodiscard]] QList<TabellaNuova> TabelleParcella();
