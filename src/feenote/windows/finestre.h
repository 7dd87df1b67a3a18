// The windows of fee notes: their places, opening, closing.
#pragma once

#include <QString>

class frmParcelle;

/// The window of a place, null when it was never made.
[[nodiscard]] frmParcelle* Parcelle(int Indice);

/// A window that dies is nobody's from here on: its children move the focus, at which others look at the
/// notes.
void LasciaPosto(const frmParcelle* Morente);

/// Opens a window: on a file, on a new note, or on a new note for the companion application.
///
/// @param Percorso file, empty for a new note
/// @param Socio partner window, 0 none; the print tab of the new window is then closed. A file that cannot be
///     read opens no window for a partner
/// @param ID reference of the matter, empty for an ordinary note
void ApriParcella(const QString& Percorso, int Socio, const QString& ID);

/// Opens a new note made of the one in a place: everything but number, date and password, and its client
/// where the user wants him.
void DuplicaParcella(int Indice);

/// Offers the notes that a killed program left unsaved: one question for each copy, whose answer opens it,
/// drops it, or keeps it for another time. The start calls it once the desktop is there.
void OffriRecupero();

/// Drops the recovery copies of the open notes and this process's lock on their folder, because the user
/// folder is about to be another; notes with unsaved changes have their copy there soon.
void LasciaCopie();

/// Brings an open note's window to the front; nothing for a free place.
void AttivaParcella(int Indice);

/// The same, and the frame with it, for a question about the note: nobody answers for what he does not see.
void PortaNotaDavanti(int Indice);

/// Links two windows: the second one's note is printed with the first one's.
void Unisci(frmParcelle& Principale, frmParcelle& Compagna);

/// Undoes the link of a window with another; both stay open, each with its print tab.
void Sciogli(frmParcelle& Finestra);

/// Closes a window, asking about unsaved changes; its linked partner is asked too before either goes.
/// Where the note in front closes, the one that was there before it comes back.
/// @return false when the close is refused
bool ChiudiParcella(int Indice);

/// Forgets all windows; serves tests.
void AzzeraFinestre();
