// The browsers of the address book that are open: one for the desktop, one for each note.
#pragma once

class frmRubrica;
struct RichiestaRubrica;

/// Opens the browser for whoever asks, or brings his up with the new table.
void ApriRubrica(const RichiestaRubrica& Chiesta);
/// A note has closed: its browser goes with it.
void ChiudiRubricaDi(int Indice, int Numero);
/// Closes all of them, asking about what is not saved. @return false when the user stays with one
[[nodiscard]] bool ChiudiRubriche();
/// Another archive may have been set: closes the browsers of every other one, asking as above. One that the
/// user stays with hands over no choice, and no note follows what is written there.
void ChiudiRubricheAltrui();
/// Before an archive is written to as a whole: asks about what is not saved in any of them. @return false
/// when the user stays with one
[[nodiscard]] bool CongedaRubriche();
/// An archive was written to as a whole, or replaced: all of them read it anew.
/// @param StessaTabella file and columns are those of before: order, filter and current row stay
void RileggiRubriche(bool StessaTabella = false);
/// The browser of a place, 0 the desktop's; null when it is not open.
[[nodiscard]] frmRubrica* RubricaDi(int Indice);
