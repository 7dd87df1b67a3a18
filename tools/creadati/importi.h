// The three tables of amounts, read after authorities, brackets and items are known.
#pragma once

#include "creadati/tariffe.h"

// Each reads its table of the folder into `Dati`, checked row by row against what is known.
// @throws Errore 53 the table is missing, 5 it is refused
void LeggiOnorariCivili(const QString& Cartella, Tariffe& Dati);
void LeggiOnorariPenali(const QString& Cartella, Tariffe& Dati);
void LeggiOnorariStragiudiziali(const QString& Cartella, Tariffe& Dati);
