// The control words of rich text that the reader heeds.
#pragma once

#include <QStringView>

#include <string_view>

/// What a control word does.
enum class AzioneRtf {
    Carattere,  ///< stands for a character, its code as the value
    Paragrafo,  ///< ends a paragraph
    Pagina,     ///< a page begins
    Cella,      ///< ends a cell of a table
    Riga,       ///< ends a row of a table
    Unicode,    ///< a character by its number
    Sostituti,  ///< how many characters follow one given by its number, for readers that do not know it
    Salta,      ///< its group is passed over
    TabellaFont,
    Codifica,       ///< the document's code page as the parameter
    CodificaFissa,  ///< the document's code page as the value
    FontIniziale,
    SetCaratteri,  ///< character set of a font
    CodificaFont,  ///< code page of a font
    // character
    Semplice,  ///< character formats back to their start
    Font,
    Dimensione,  ///< half points
    Grassetto,
    Corsivo,
    Sottolineato,
    NonSottolineato,
    Barrato,
    Rigo,    ///< the value is a PostoRigo
    Alzato,  ///< by half points; 0 ends it, and the value is a PostoRigo
    Maiuscole,
    Nascosto,
    // paragraph
    ParagrafoSemplice,  ///< paragraph formats back to their start
    Allinea,            ///< the value is an Allineamento
    RientroSinistro,    ///< twips, as those below
    RientroDestro,
    PrimaRiga,
    Sopra,
    Sotto,
    PaginaPrima,   ///< the paragraph begins a page
    ConSeguente,   ///< the paragraph ends none
    Intera,        ///< no page divides the paragraph
    Interlinea,    ///< distance of lines: twips, negative an exact one, 0 the usual
    Multipla,      ///< the distance is one of lines, 240 each
    InTabella,     ///< the paragraph belongs to a cell
    VersoFermo,    ///< of the next tab stop; the value is a Fermo::Verso
    RiempieFermo,  ///< what fills the way to the next tab stop, the value
    Fermo,         ///< a tab stop
    // rows of a table
    NuovaRiga,     ///< what follows says how a row is divided
    Sinistra,      ///< left edge of a row
    DestraCella,   ///< a cell ends here
    CellaUnita,    ///< the cell belongs to the one before it
    LatoCella,     ///< lines of this side of a cell, a Cella::Lato
    LatoRiga,      ///< lines of this side of the row
    LatoInterno,   ///< lines between cells or rows
    LatoEstraneo,  ///< lines of a paragraph or a page
    Linea,         ///< the side has one
    SenzaLinea,    ///< it has none
};

struct ParolaRtf
{
    std::u16string_view Nome;
    AzioneRtf Azione;
    int Valore = 0;
};

/// The word of this name, without its backslash; null when the reader does not heed it. Exact case.
[[nodiscard]] const ParolaRtf* CercaParolaRtf(QStringView Nome);
