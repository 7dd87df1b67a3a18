// A guide as a document of pages.
#pragma once

#include "creaguide/marcatura.h"
#include "platform/document/superficie.h"

struct Guida
{
    QString Titolo;
    Documento Doc;
};

/// Reads a guide and composes it. @throws Errore as LeggiTesto
[[nodiscard]] Guida LeggiGuida(const QString& Nome, const QString& Testo, const FonteTabelle& Tabelle);

/// How large the headings of a text stand: a guide by itself, or a page of a larger one.
enum class Rango { Guida, Pagina };

/// Appends what of a text is for the paper.
void ComponiTesto(Documento& Doc, const TestoGuida& Testo, Rango Sua = Rango::Guida);

/// Appends the title of a chapter, which begins a page.
void ComponiCapitolo(Documento& Doc, const QString& Titolo);
