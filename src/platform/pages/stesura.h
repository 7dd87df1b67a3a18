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
    double Scesa = 0.0;  ///< what the first page gives to the document's picture, from its top
};

/// A paragraph or a cell, broken into lines on its own; of one with an endless word a part, whose last lines
/// are the first ones of the next part.
struct Brano
{
    std::shared_ptr<const QTextLayout> Disposto;
    int Righe = 0;         ///< lines that count, from the first
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

/// Letters of one word that are laid out at once. The toolkit reads every line to the end of its word, so
/// that the time for one of 100,000 letters would grow by their square.
inline constexpr qsizetype MassimoParola = 2000;

/// Lines of passages below each other from y 0; `Quale` is the number of the first.
[[nodiscard]] std::vector<RigaStesa> RigheDi(std::span<const Brano> Questi, int Quale);

/// Lines at a distance that is this part of their own: their letters stay, and move by half of what is gone.
void StringiRighe(std::vector<RigaStesa>& Righe, double Interlinea);

/// The passages of a text in one font, in a box with this left edge and width; leading blanks shrink when its
/// first line would not fit.
/// @param Inizio place of its first character in the text stream
[[nodiscard]] std::vector<Brano> BraniDi(const QString& Testo, const Carattere& Quale, FontDocumento& Font,
                                         Allineamento Come, double X, double Larghezza, qsizetype Inizio);

/// The same for a text of one line.
[[nodiscard]] std::unique_ptr<QTextLayout> Disponi(const QString& Testo, const FontMisurato& Font,
                                                   Allineamento Come, double Larghezza);
