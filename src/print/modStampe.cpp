#include "print/modStampe.h"

#include "core/modLogoStampa.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "print/modContratto.h"
#include "print/modFatture.h"
#include "print/modNotaSpese.h"
#include "print/modPrenotula.h"
#include "print/modPreventivo.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int FondoAssociata = 0xFEF8ED;  // tinted, for a fee note tied to another
constexpr int FondoFinestra = -1;

int ColoreFondo(const Parcella& Nota)
{
    return Nota.Multipla() || Nota.IDMultipla > 0 ? FondoAssociata : FondoFinestra;
}

void PreparaPagina(Superficie& vp, const Parcella& Nota, int Tipo)
{
    ImpostaMargini(vp, Tipo);
    vp.HdrFontName(u"Times New Roman"_s);
    vp.HdrFontSize(8);
    vp.HeadPicture(LogoDelDocumento(Tipo));
    vp.OnePage(Nota.UnaPagina);
    vp.Author(sessione::StudioNome);
    vp.Subject(Nota.txtDatiStaOgg.Testo.isEmpty() ? VociTipoStampa().value(Tipo) : Nota.txtDatiStaOgg.Testo);
    // The surface keeps its text state from one document to the next; each begins from the same one.
    vp.FontName(u"Times New Roman"_s);
    vp.FontSize(12);
    vp.FontBold(false);
    vp.TextAlign(Allineamento::Sinistra);
}

/// Writes a document that has been opened.
using Compositore = void (*)(Superficie& vp, StatoStampa& Stato, const Parcella& Nota);

/// By TipoStampa.
constexpr std::array Compositori{
    Compositore{ComponiPrenotula},        Compositore{ComponiPreventivo},
    Compositore{ComponiFatturaSintetica}, Compositore{ComponiFatturaAnalitica},
    Compositore{ComponiNotaSpese},        Compositore{ComponiContratto},
    Compositore{ComponiInformativa},      Compositore{ComponiSoloContabile},
};
static_assert(Compositori.size() == TipiDocumento.size());

/// @return false for a number that is no document
bool Componi(Superficie& vp, const Parcella& Nota, int Tipo)
{
    if (!ETipoStampa(Tipo))
        return false;
    StatoStampa Stato;
    Compositori[size_t(Tipo)](vp, Stato, Nota);
    return true;
}

/// Ends the document however the composition ends: what was drawn before a failure can then be shown.
class DocumentoAperto
{
public:
    explicit DocumentoAperto(Superficie& Foglio) : vp(Foglio) { vp.StartDoc(); }
    ~DocumentoAperto() { vp.EndDoc(); }
    DocumentoAperto(const DocumentoAperto&) = delete;
    DocumentoAperto& operator=(const DocumentoAperto&) = delete;

private:
    Superficie& vp;
};

/// @return false for a number that is no document
bool ComponiDocumento(Superficie& vp, const Parcella& Nota, int Tipo)
{
    const DocumentoAperto Aperto(vp);
    const bool Composto = Componi(vp, Nota, Tipo);
    // The blanks push the number to the right.
    vp.PageFooter(QString(124, u' ') + u"Pagina %d"_s);
    return Composto;
}

}  // namespace

bool Anteprima(Superficie& vp, const Parcella& Nota, int Tipo)
{
    if (!Nota.Pronta)
        return false;
    vp.BackColor = ColoreFondo(Nota);
    vp.Tag = u"1"_s;
    vp.PreviewPage = 1;
    PreparaPagina(vp, Nota, Tipo);
    if (Nota.ArchivioNonLetto) {
        const DocumentoAperto Bianco(vp);
        throw Errore(Nota.ArchivioNonLetto->Numero, Nota.ArchivioNonLetto->Descrizione);
    }
    const bool Composto = ComponiDocumento(vp, Nota, Tipo);
    AvvisaLogo();
    AvvisaClausole();  // a message may bring the next composition, and this one has ended
    return Composto;
}

void ImpostaMargini(Superficie& vp, int Tipo)
{
    const bool CartaIntestata = TipoDi(Tipo).CartaIntestata;
    vp.MarginLeft(u"2cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.MarginTop(CartaIntestata ? u"3cm"_s : u"1.5cm"_s);
    vp.MarginBottom(CartaIntestata ? u"1.5cm"_s : u"3.2cm"_s);
}
