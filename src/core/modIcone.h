// The user's icons: what kr5.ini holds of them, and where they stand on the desktop.
#pragma once

#include "platform/base/tabellarighe.h"

#include <QPoint>
#include <QString>

enum ColonnaIcona { IconaTitolo, IconaCollegamento, IconaFigura, ColonneIcona };

/// Longest title and target, in characters: what the file keeps of a value, and a label has room for.
inline constexpr int MassimoTitolo = 60;
inline constexpr int MassimoCollegamento = 500;

/// Picture of an icon that was given none.
inline constexpr QStringView FiguraPredefinita = u"icona.gif";

/// One row per icon, for the session: what stands on the desktop. The settings edit a copy.
inline TabellaRighe IconeUtente{ColonneIcona};

/// The icons in the section "desktop" of kr5.ini, up to the first one of which label, target or picture is
/// missing. The user folder's file counts where there is one, else the program folder's.
[[nodiscard]] TabellaRighe LeggiIcone();

/// Reads IconeUtente anew.
void LeggiIconeUtente();

/// Writes the icons in the place of those in the file, the one that LeggiIcone reads. Rows without label or
/// target are left out, numbers have no gaps. No file is made for no icon. A file that has icons behind a
/// gap, which nobody reads, stays beside it, its name followed by ".guasto".
/// @param Cambiate they are not those that were read: where the program folder refuses them they go into the
/// user folder, whose file hides that one from then on
/// @return false when no file could be written; the former ones are as they were
bool ScriviIconeUtente(const TabellaRighe& Icone, bool Cambiate = true);

/// True for an address: it begins with "http" or "www", in any case.
[[nodiscard]] bool ELink(const QString& Destinazione);

/// True when the file of icons can hold the text: a character that its code page lacks would come back as
/// "?".
[[nodiscard]] bool Conservabile(const QString& Testo);

/// Opens the target of an icon. An address goes to the browser ("www" gets "http://" in front) and "mailto:"
/// to the mail program, with their letters as they stand; a program, in the program folder or found on the
/// path, is started in the program folder; any other file or folder is opened by what the system associates
/// with it.
/// @throws Errore of what the system answered, 53 when nothing is there, each with the target
void ApriDestinazione(const QString& Destinazione);

/// Upper left corner of the picture of an icon, in pixels: six in the first row, which starts further right
/// than the following ones.
[[nodiscard]] QPoint PostoIcona(int Riga);

/// The same of one of the program's own icons: three rows above the user's, in the columns of their first
/// row.
/// @param Quante how many there are; more than fifteen make the rows longer than five
[[nodiscard]] QPoint PostoFisso(int Indice, int Quante);
