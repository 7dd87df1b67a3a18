// Laid out documents as the tests look at them: by their lines, and by their PDF read with other tools.
#pragma once

#include "platform/pages/impaginazione.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace pagine {

/// What a program of poppler-utils writes about a PDF; "%" among the arguments stands for the file.
/// Empty when the program fails.
QString Leggi(const QString& Programma, const QStringList& Argomenti, const QByteArray& Pdf);

/// Words of a page of a PDF in the order in which they were painted, pages from 1.
QStringList ParoleDiPagina(const QByteArray& Pdf, int Pagina);

/// The fonts of a PDF: those that are not embedded. A row that cannot be read is one of them.
QStringList FontMancanti(const QByteArray& Pdf);

/// The text of a line.
QString TestoDi(const Impaginazione& Fatta, const RigaImpaginata& Riga);

/// A line found by a part of its text, and where it stands. Page 0 when there is none.
struct RigaTrovata
{
    int Pagina = 0;
    RigaImpaginata Riga;
};
RigaTrovata CercaRiga(const Impaginazione& Fatta, const QString& Parte);

/// What is wrong on the pages: a line outside the text area, two lines that overlap, a character of the text
/// stream that stands on no line or on two. Empty when all is well.
QString Difetto(const Impaginazione& Fatta);

}  // namespace pagine
