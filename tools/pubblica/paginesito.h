// The pages of the program as a web server shows them, under the addresses that its commands open.
#pragma once

#include <QString>

/// Lays the pages of a program folder out in the folder of a web server: vdm.asp (assistance), vdm/link.htm
/// (useful sites), vdm/setup/notes.htm (what is new in a version), and the guides that they lead to. Links
/// that open a window of the program become plain words.
/// @throws Errore 53 the program folder lacks a page or a guide, others as ScriviFile
void ScriviPagineSito(const QString& Programma, const QString& Uscita, const QString& Versione,
                      const QString& Nota);
