// A paragraph as lines.
#pragma once

#include "platform/pages/stesura.h"

/// A line of a paragraph and the height of its strip, room around and distance of lines included.
struct RigaInStriscia
{
    RigaStesa Riga;
    double Altezza = 0.0;
};

/// A paragraph on lines; one without text is a single blank line, with no passage.
struct ParagrafoSteso
{
    std::vector<Brano> Brani;
    std::vector<RigaInStriscia> Righe;
};

/// @param Testo  the paragraph's own, with line separators for its line breaks
/// @param Area   left edge and width of what it stands in
/// @param Inizio place of its first character in the text stream
/// @param Quale  number that its first passage will have
[[nodiscard]] ParagrafoSteso StendiParagrafo(const Paragrafo& Questo, const QString& Testo,
                                             const AreaStampa& Area, FontDocumento& Font, qsizetype Inizio,
                                             int Quale);

/// A text with the separators that break lines within a row.
[[nodiscard]] QString InLinee(QString Testo);
