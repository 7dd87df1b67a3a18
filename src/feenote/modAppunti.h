// Cut, copy, paste and undo of lines: one clipboard for the honoraria and the expenses of a window.
#pragma once

#include "feenote/modRighe.h"

#include <QList>

/// The clipboard of a window.
struct AppuntiRighe
{
    TabellaRighe Appunti{OnoColonne};  ///< wide enough for either table
    int RigaTagliata = 0;              ///< lowest row of the last cut, where an undo puts the lines back
    bool DaTaglio = false;             ///< what it holds was cut, so that there is something to undo

    [[nodiscard]] bool PuoIncollare() const { return !Appunti.Vuota(); }
    [[nodiscard]] bool PuoAnnullare() const { return DaTaglio && !Appunti.Vuota(); }
};

/// Row code of IncollaVoci for the place of a new line.
constexpr int RigaDiPosto = -1;

/// Empties the clipboard.
void SvuotaAppunti(AppuntiRighe& Copiate);

/// Appends a copy of a table's row to the clipboard; columns that the table does not have stay empty.
/// @throws Errore 9 when the row does not exist
void CreaVoceAppo(AppuntiRighe& Copiate, const TabellaRighe& Tabella, int Riga);

/// Cuts rows: the clipboard holds them in the order in which they were selected, the table loses exactly
/// them.
///
/// @param Scelte rows in the order of their selection, each of them once
/// @param Chiedi asks before anything changes
/// @return false when nothing was cut: no row selected, which is told, or the user said no
bool TagliaVoci(AppuntiRighe& Copiate, TabellaRighe& Tabella, const QList<int>& Scelte, bool Chiedi);

/// Copies rows in the order of their selection. Nothing is left to undo then.
/// @return false when no row is selected, which is told
bool CopiaVoci(AppuntiRighe& Copiate, const TabellaRighe& Tabella, const QList<int>& Scelte);

/// Inserts what the clipboard holds before a row and empties it: what is pasted once is not pasted twice.
/// Columns beyond the table's width are dropped, and amounts mean what the table gives them.
///
/// @param Riga RigaDiPosto takes `Posto`; a row past the end is the end
/// @param Posto row for a new line, as RowIns gives it
/// @return the first row inserted, empty when there is nothing to paste, which is told
std::optional<int> IncollaVoci(AppuntiRighe& Copiate, TabellaRighe& Tabella, int Riga, int Posto);

/// Puts the lines of the last cut back where they were cut.
/// @return the first row inserted, empty when there is no cut to undo, which is told
std::optional<int> AnnullaTaglio(AppuntiRighe& Copiate, TabellaRighe& Tabella);

/// Moves rows, after asking, so that the first of them takes the number `Destinazione` in the table without
/// them; the clipboard is emptied by it.
/// @param Destinazione row under the pointer; past the last one they go to the end
/// @return the first row moved, empty when no row is selected, which is told, or the user said no
std::optional<int> SpostaVoci(AppuntiRighe& Copiate, TabellaRighe& Tabella, const QList<int>& Scelte,
                              int Destinazione);

/// The question before a deletion of rows. @return true when the user confirms
[[nodiscard]] bool ConfermaCancellazione(qsizetype Quante);

/// Deletes rows, whatever the order in which they are given; numbers that the table does not have count for
/// nothing.
void EliminaRighe(TabellaRighe& Tabella, QList<int> Quali);
