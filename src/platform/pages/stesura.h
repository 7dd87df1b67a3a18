// A document as lines of text in strips of paper, before it is divided into pages.
#pragma once

#include "platform/pages/fontstampa.h"
#include "platform/pages/impaginazione.h"
#include "platform/pages/spezzapagine.h"

#include <QLineF>
#include <QTextLayout>

#include <memory>
#include <optional>
#include <span>
#include <vector>

/// The text area of a sheet; lengths in dots.
struct AreaStampa
{
    double Sinistra = 0.0;
    double Alto = 0.0;
    double Larghezza = 0.0;
    double Altezza = 0.0;
};

/// A paragraph or a cell, broken into lines on its own.
struct Brano
{
    std::unique_ptr<QTextLayout> Disposto;
    qsizetype Inizio = 0;  ///< place of its first character in the text stream
    double X = 0.0;        ///< left edge of its box on the sheet
    double Larghezza = 0.0;
};

/// A line of a passage within its strip; x from the edge of the sheet, y from the top of the strip.
struct RigaStesa
{
    int Brano = -1;  ///< none for a blank row
    int Riga = 0;    ///< within the passage
    QRectF Dove;     ///< of its text
    double Ascesa = 0.0;
    qsizetype Inizio = 0;
    qsizetype Lunghezza = 0;
    double Scarto = 0.0;          ///< what its text is painted below its rectangle's top
    int NellaCella = 0;           ///< its place among the lines of its cell
    bool Muta = false;            ///< what is drawn stands for its text, which is not painted
    std::vector<QRectF> Pieni{};  ///< what is drawn, from its rectangle's corner
};

/// A strip and what stands in it.
struct Pezzo
{
    Striscia Misure;
    int Titoli = -1;       ///< first of the two pieces that a page repeats above this one
    bool DiTesto = false;  ///< belongs to a paragraph
    std::vector<RigaStesa> Righe;
    std::vector<QLineF> Linee;  ///< of a table with a border
};

/// The whole document laid out as one endless strip.
struct Stesura
{
    QString Testo;
    std::vector<Brano> Brani;
    std::vector<Pezzo> Pezzi;
    std::vector<Selezione> Tabelle;  ///< their stretches of the text stream, in order

    [[nodiscard]] std::vector<Striscia> Strisce() const;
};

[[nodiscard]] Stesura Stendi(const Documento& Doc, const AreaStampa& Area, FontDocumento& Font);

/// Lines of a passage below each other from y 0; `Quale` is its number.
[[nodiscard]] std::vector<RigaStesa> RigheDi(const Brano& Questo, int Quale);

/// A text in one font on lines of this width; leading blanks shrink when its first line would not fit.
[[nodiscard]] std::unique_ptr<QTextLayout> Disponi(const QString& Testo, const FontMisurato& Font,
                                                   Allineamento Come, double Larghezza);
