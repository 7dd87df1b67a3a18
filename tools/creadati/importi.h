// The three tables of amounts, read after authorities, brackets and items are known.
#pragma once

#include "creadati/tabellatesto.h"
#include "creadati/tariffe.h"

// Each reads its table of the folder into `Dati`, checked row by row against what is known.
// @throws Errore 53 the table is missing, 5 it is refused
void LeggiOnorariCivili(const QString& Cartella, Tariffe& Dati);
void LeggiOnorariPenali(const QString& Cartella, Tariffe& Dati);
/// @param Percorso the table itself: each tariff has one
void LeggiOnorariStragiudiziali(const QString& Percorso, Tariffe& Dati);

// What every table of amounts names: a group of the category's authorities, an item of it that has amounts.
// @throws Errore 5 it is none
[[nodiscard]] QString LeggiGruppo(const TabellaTesto& Tabella, int Riga, const Tariffe& Dati,
                                  QStringView Categ);
[[nodiscard]] int LeggiCodice(const TabellaTesto& Tabella, int Riga, const Tariffe& Dati, QStringView Categ);
