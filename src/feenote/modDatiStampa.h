// The print data of a fee note that name nobody: numbers, dates, texts and ticks, and the choice of a
// document.
#pragma once

#include "feenote/parcella.h"

#include <QString>

#include <span>

/// Characters of a short text and of a free text of the print data, as the columns of the file hold them.
constexpr int MassimoBreve = 255;
constexpr int MassimoMemo = 65535;

/// A box of txtDatiPar and the characters that its column holds.
struct CampoDatiPar
{
    DatoStampa Indice;
    int Massimo;
};
[[nodiscard]] std::span<const CampoDatiPar> CampiDatiPar();
/// Characters of one of them.
[[nodiscard]] int MassimoDatiPar(DatoStampa Indice);
/// Typed by the user; a longer text is cut.
void CambiaDatiPar(Parcella& Nota, DatoStampa Indice, const QString& Testo);

/// A click in the list of documents: switches, then the client block.
void ScegliDocumento(Parcella& Nota, int Tipo);
/// chkIBAN: without an IBAN in the settings the user is told where it goes, and the tick is taken away.
void CambiaIban(Parcella& Nota, bool Attivo);
/// Takes the tick away when the settings no longer hold an IBAN; that is no change of the note.
/// @return true when it was taken
[[nodiscard]] bool TogliIbanAssente(Parcella& Nota);
void CambiaIvaDifferita(Parcella& Nota, bool Attiva);
void CambiaFatturaAcconto(Parcella& Nota, bool Attiva);
