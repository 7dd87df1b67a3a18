// The help: its contents, its pages for the viewer, its chapters for the paper, what they say of each other.
#pragma once

#include "creaguide/marcatura.h"
#include "platform/document/superficie.h"

#include <vector>

/// A page of the help.
struct PaginaDiAiuto
{
    QString Nome;  ///< of its file, without extension: the window, tab or panel that it is about
    TestoGuida Testo;
    bool DiAltraGuida = false;  ///< a chapter of a guide that has a document of its own
};

struct CapitoloAiuto
{
    QString Titolo;
    std::vector<PaginaDiAiuto> Pagine;
};

struct Aiuto
{
    QString Titolo;
    TestoGuida Indice;
    std::vector<CapitoloAiuto> Capitoli;
};

/// Reads the help from the folder of the guides: "aiuto/indice.txt" names the chapters, and in each the pages
/// ("nome" is aiuto/nome.txt, "guida:Nome" is Nome.txt, a page for each of its chapters, "calcolatrici" those
/// of the calculators that no other line names).
///
/// @throws Errore 5 "nome, riga n: motivo" as LeggiTesto, for a page that is named twice or not at all, for a
///         reference that leads nowhere
[[nodiscard]] Aiuto LeggiAiuto(const QString& Cartella, const FonteTabelle& Tabelle);

/// Writes pages, contents ("indice.htm") and the list for the viewer ("elenco.txt") into a folder, and
/// removes the pages of a former time.
///
/// The list has a line for each chapter, page and section, in order, its parts divided by tabs:
///   C  title
///   P  file  title
///   S  file, with "#" and the anchor behind the first one  title  words on one line
void ScriviAiuto(const Aiuto& Guida, const QString& Cartella);

/// Appends contents with the numbers of their pages, then every chapter that has no document of its own.
void ComponiCapitoli(Documento& Doc, const Aiuto& Guida);
