// The plain text that the guides are written in, and the document that it becomes.
//
//   # Titolo            the title, once, at the top
//   ## Sezione          a section
//   ### Paragrafo       a part of one
//   testo               a paragraph; its lines are joined, a blank line ends it
//   - voce  1. voce     items, with a bullet or with the number as it stands
//   |= 6 4> 4>          opens a table: widths in centimetres, ">" for columns flush right
//   | a | b | c         a row of it, the first one its headings; a blank line ends the table
//   %tabella nome       a table made from the data of the program
//   %pagina             what follows begins a page
//   **grassetto** __corsivo__   within a line of any kind but a title
#pragma once

#include "platform/document/superficie.h"

#include <QStringList>

#include <functional>

/// A table of the program's data: headings first.
struct TabellaDati
{
    std::vector<double> LarghezzeCm;
    std::vector<bool> ADestra;
    QList<QStringList> Righe;
};

struct Guida
{
    QString Titolo;
    Documento Doc;
};

/// Gives a table by the name that the text calls it. @throws Errore 5 no such table
using FonteTabelle = std::function<TabellaDati(const QString& Nome)>;

/// Reads a guide.
/// @param Nome of the file, for the sentences of the errors
/// @throws Errore 5 "nome, riga n: motivo" for a text without a title or with one too many, an unknown
///         directive, a row that does not fit its table, marks that are not closed
[[nodiscard]] Guida LeggiGuida(const QString& Nome, const QString& Testo, const FonteTabelle& Tabelle);
