#include "platform/document/lettorertf_parole.h"

#include "platform/base/paginacodice.h"
#include "platform/document/superficie.h"

#include <algorithm>
#include <array>

namespace {

constexpr int Codice(Allineamento Come)
{
    return static_cast<int>(Come);
}

// A column's end is a paragraph's, as there are none; a section goes on where the last one ended.
constexpr std::array Parole{
    ParolaRtf{u"annotation", AzioneRtf::Salta},
    ParolaRtf{u"ansi", AzioneRtf::CodificaFissa, PaginaWindows},
    ParolaRtf{u"ansicpg", AzioneRtf::Codifica},
    ParolaRtf{u"atnauthor", AzioneRtf::Salta},
    ParolaRtf{u"atnid", AzioneRtf::Salta},
    ParolaRtf{u"b", AzioneRtf::Grassetto},
    ParolaRtf{u"bin", AzioneRtf::Byte},
    ParolaRtf{u"bkmkend", AzioneRtf::Salta},
    ParolaRtf{u"bkmkstart", AzioneRtf::Salta},
    ParolaRtf{u"bullet", AzioneRtf::Carattere, u'\u2022'},
    ParolaRtf{u"caps", AzioneRtf::Maiuscole},
    ParolaRtf{u"cell", AzioneRtf::Cella},
    ParolaRtf{u"colortbl", AzioneRtf::Salta},
    ParolaRtf{u"column", AzioneRtf::Paragrafo},
    ParolaRtf{u"cpg", AzioneRtf::CodificaFont},
    ParolaRtf{u"datastore", AzioneRtf::Salta},
    ParolaRtf{u"deff", AzioneRtf::FontIniziale},
    ParolaRtf{u"deleted", AzioneRtf::Nascosto},
    ParolaRtf{u"do", AzioneRtf::Salta},
    ParolaRtf{u"emdash", AzioneRtf::Carattere, u'\u2014'},
    ParolaRtf{u"emspace", AzioneRtf::Carattere, u'\u2003'},
    ParolaRtf{u"endash", AzioneRtf::Carattere, u'\u2013'},
    ParolaRtf{u"enspace", AzioneRtf::Carattere, u'\u2002'},
    ParolaRtf{u"f", AzioneRtf::Font},
    ParolaRtf{u"fcharset", AzioneRtf::SetCaratteri},
    ParolaRtf{u"fi", AzioneRtf::PrimaRiga},
    ParolaRtf{u"filetbl", AzioneRtf::Salta},
    ParolaRtf{u"fldinst", AzioneRtf::Salta},
    ParolaRtf{u"fonttbl", AzioneRtf::TabellaFont},
    ParolaRtf{u"footer", AzioneRtf::Salta},
    ParolaRtf{u"footerf", AzioneRtf::Salta},
    ParolaRtf{u"footerl", AzioneRtf::Salta},
    ParolaRtf{u"footerr", AzioneRtf::Salta},
    ParolaRtf{u"footnote", AzioneRtf::Salta},
    ParolaRtf{u"fs", AzioneRtf::Dimensione},
    ParolaRtf{u"header", AzioneRtf::Salta},
    ParolaRtf{u"headerf", AzioneRtf::Salta},
    ParolaRtf{u"headerl", AzioneRtf::Salta},
    ParolaRtf{u"headerr", AzioneRtf::Salta},
    ParolaRtf{u"i", AzioneRtf::Corsivo},
    ParolaRtf{u"info", AzioneRtf::Salta},
    ParolaRtf{u"keepn", AzioneRtf::ConSeguente},
    ParolaRtf{u"lbr", AzioneRtf::Carattere, u'\n'},
    ParolaRtf{u"ldblquote", AzioneRtf::Carattere, u'\u201C'},
    ParolaRtf{u"li", AzioneRtf::RientroSinistro},
    ParolaRtf{u"lin", AzioneRtf::RientroSinistro},
    ParolaRtf{u"line", AzioneRtf::Carattere, u'\n'},
    ParolaRtf{u"listoverridetable", AzioneRtf::Salta},
    ParolaRtf{u"listtable", AzioneRtf::Salta},
    ParolaRtf{u"lquote", AzioneRtf::Carattere, u'\u2018'},
    ParolaRtf{u"mac", AzioneRtf::CodificaFissa, 10000},
    ParolaRtf{u"nestcell", AzioneRtf::Cella},
    ParolaRtf{u"nonesttables", AzioneRtf::Salta},
    ParolaRtf{u"nonshppict", AzioneRtf::Salta},
    ParolaRtf{u"object", AzioneRtf::Salta},
    ParolaRtf{u"operator", AzioneRtf::Salta},
    ParolaRtf{u"page", AzioneRtf::Pagina},
    ParolaRtf{u"pagebb", AzioneRtf::PaginaPrima},
    ParolaRtf{u"par", AzioneRtf::Paragrafo},
    ParolaRtf{u"pard", AzioneRtf::ParagrafoSemplice},
    ParolaRtf{u"pc", AzioneRtf::CodificaFissa, 437},
    ParolaRtf{u"pca", AzioneRtf::CodificaFissa, 850},
    ParolaRtf{u"pict", AzioneRtf::Salta},
    ParolaRtf{u"plain", AzioneRtf::Semplice},
    ParolaRtf{u"pntxta", AzioneRtf::Salta},
    ParolaRtf{u"pntxtb", AzioneRtf::Salta},
    ParolaRtf{u"private", AzioneRtf::Salta},
    ParolaRtf{u"qc", AzioneRtf::Allinea, Codice(Allineamento::Centro)},
    ParolaRtf{u"qd", AzioneRtf::Allinea, Codice(Allineamento::Giustificato)},
    ParolaRtf{u"qj", AzioneRtf::Allinea, Codice(Allineamento::Giustificato)},
    ParolaRtf{u"ql", AzioneRtf::Allinea, Codice(Allineamento::Sinistra)},
    ParolaRtf{u"qmspace", AzioneRtf::Carattere, u'\u2005'},
    ParolaRtf{u"qr", AzioneRtf::Allinea, Codice(Allineamento::Destra)},
    ParolaRtf{u"rdblquote", AzioneRtf::Carattere, u'\u201D'},
    ParolaRtf{u"revtbl", AzioneRtf::Salta},
    ParolaRtf{u"ri", AzioneRtf::RientroDestro},
    ParolaRtf{u"rin", AzioneRtf::RientroDestro},
    ParolaRtf{u"row", AzioneRtf::Riga},
    ParolaRtf{u"rquote", AzioneRtf::Carattere, u'\u2019'},
    ParolaRtf{u"rxe", AzioneRtf::Salta},
    ParolaRtf{u"sa", AzioneRtf::Sotto},
    ParolaRtf{u"sb", AzioneRtf::Sopra},
    ParolaRtf{u"sect", AzioneRtf::Paragrafo},
    ParolaRtf{u"shpinst", AzioneRtf::Salta},
    ParolaRtf{u"shptxt", AzioneRtf::Salta},
    ParolaRtf{u"stylesheet", AzioneRtf::Salta},
    ParolaRtf{u"tab", AzioneRtf::Carattere, u'\t'},
    ParolaRtf{u"tc", AzioneRtf::Salta},
    ParolaRtf{u"template", AzioneRtf::Salta},
    ParolaRtf{u"themedata", AzioneRtf::Salta},
    ParolaRtf{u"txe", AzioneRtf::Salta},
    ParolaRtf{u"u", AzioneRtf::Unicode},
    ParolaRtf{u"uc", AzioneRtf::Sostituti},
    ParolaRtf{u"ul", AzioneRtf::Sottolineato},
    ParolaRtf{u"uld", AzioneRtf::Sottolineato},
    ParolaRtf{u"uldash", AzioneRtf::Sottolineato},
    ParolaRtf{u"uldashd", AzioneRtf::Sottolineato},
    ParolaRtf{u"uldashdd", AzioneRtf::Sottolineato},
    ParolaRtf{u"uldb", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulhwave", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulldash", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulnone", AzioneRtf::NonSottolineato},
    ParolaRtf{u"ulth", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulthd", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulthdash", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulthdashd", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulthdashdd", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulthldash", AzioneRtf::Sottolineato},
    ParolaRtf{u"ululdbwave", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulw", AzioneRtf::Sottolineato},
    ParolaRtf{u"ulwave", AzioneRtf::Sottolineato},
    ParolaRtf{u"v", AzioneRtf::Nascosto},
    ParolaRtf{u"xe", AzioneRtf::Salta},
};
static_assert(std::ranges::is_sorted(Parole, {}, &ParolaRtf::Nome));

}  // namespace

const ParolaRtf* CercaParolaRtf(QStringView Nome)
{
    const std::u16string_view Cercata(Nome.utf16(), static_cast<std::size_t>(Nome.size()));
    const auto Sua = std::ranges::lower_bound(Parole, Cercata, {}, &ParolaRtf::Nome);
    return Sua != Parole.end() && Sua->Nome == Cercata ? &*Sua : nullptr;
}
