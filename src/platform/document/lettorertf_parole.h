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
    Byte,       ///< so many raw bytes follow
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
    PaginaPrima,  ///< the paragraph begins a page
    ConSeguente,  ///< the paragraph ends none
};

struct ParolaRtf
{
    std::u16string_view Nome;
    AzioneRtf Azione;
    int Valore = 0;
};

/// The word of this name, without its backslash; null when the reader does not heed it. Exact case.
[[nodiscard]] const ParolaRtf* CercaParolaRtf(QStringView Nome);
