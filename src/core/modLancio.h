// Opening documents and addresses with the system's programs.
#pragma once

#include <QString>

/// Opens a PDF beside the program, at a page when it is above 0.
/// A message reports a missing file, and nothing is started; another a missing viewer, and the start is tried
/// all the same.
void ApriPDF(const QString& Percorso, int Pagina = 0);

/// Opens a web or mail address, lower-cased whole, with "http://" in front unless it has a scheme of
/// its own (http, https, mailto). A message reports a failure with its number.
void ApriUrl(const QString& Indirizzo);

/// Opens a document in the word processor that the system associates with it, with the busy pointer.
void ApriDocWord(const QString& Percorso);
