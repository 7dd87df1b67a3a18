#include "print/modStampe.h"

#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/base/paginacodice.h"
#include "platform/system/percorsi.h"
#include "print/modContratto.h"
#include "print/modCorpo.h"
#include "print/modFatture.h"
#include "print/modNotaSpese.h"
#include "print/modPreventivo.h"
#include "print/modRiepilogo.h"

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
    // The short invoice leaves room for paper with a printed letterhead.
    const bool CartaIntestata = Tipo == StampaFatturaSintetica;
    vp.MarginLeft(u"2cm"_s);
    vp.MarginRight(u"1.4cm"_s);
    vp.MarginTop(CartaIntestata ? u"3cm"_s : u"1.5cm"_s);
    vp.MarginBottom(CartaIntestata ? u"1.5cm"_s : u"3.2cm"_s);
    vp.HdrFontName(u"Times New Roman"_s);
    vp.HdrFontSize(8);
    vp.Author(sessione::StudioNome);
    vp.Subject(Nota.txtDatiStaOgg.Testo.isEmpty() ? VociTipoStampa().value(Tipo) : Nota.txtDatiStaOgg.Testo);
    // The surface keeps its text state from one document to the next; each begins from the same one.
    vp.FontName(u"Times New Roman"_s);
    vp.FontSize(12);
    vp.FontBold(false);
    vp.TextAlign(Allineamento::Sinistra);
}

/// The row of number and date, of which either may be missing.
void TitoloPrenotula(Superficie& vp, const Parcella& Nota)
{
    const QString Numero = Nota.DatiPar(DatoNumero);
    const QString Data = Nota.DatiPar(DatoData);
    RigaVuota(vp);
    vp.Text(u"Preavviso di parcella "_s);
    if (!Numero.isEmpty())
        vp.Text(u"n. "_s + Numero);
    if (!Data.isEmpty())
        vp.Text(u" del "_s + Data);
}

void ComponiPrenotula(Superficie& vp, StatoStampa& Stato, const Parcella& Nota, int Tipo)
{
    IntestazioneStudio(vp, Nota, Tipo);
    TitoloPrenotula(vp, Nota);
    VoceIntestazione(vp, Nota.txtControp.Testo, u"Controparte: "_s + Nota.txtDatiStaControp.Testo);
    VoceIntestazione(vp, Nota.txtDatiStaOgg.Testo, u"Oggetto: "_s + Nota.txtDatiStaOgg.Testo);
    const QString Valore = RigaValore(Nota);
    VoceIntestazione(vp, Valore, Valore);
    RigaVuota(vp, 2);
    StampaCorpo(vp, Stato, Nota, Tipo);
    RigaVuota(vp);
    StampaRiepilogo(vp, Nota, Tipo);
    RigaVuota(vp, 2);
    vp.Text(u"N.B. : la presente parcella non costituisce fattura che sarà emessa quietanzata "
            u"alla data del pagamento"_s);
    StampaIban(vp, Nota);
    StampaFirma(vp);
}

void ComponiSoloContabile(Superficie& vp, StatoStampa& Stato, const Parcella& Nota, int Tipo)
{
    vp.TextAlign(Allineamento::Giustificato);
    vp.Text(Nota.DatiPar(DatoTestoSuperiore));
    RigaVuota(vp, 2);
    StampaCorpo(vp, Stato, Nota, Tipo);
    RigaVuota(vp);
    StampaRiepilogo(vp, Nota, Tipo);
    RigaVuota(vp);
    vp.TextAlign(Allineamento::Giustificato);
    vp.Text(Nota.DatiPar(DatoTestoInferiore));
    RigaVuota(vp);
}

/// @return false for a number that is no document
bool Componi(Superficie& vp, const Parcella& Nota, int Tipo)
{
    StatoStampa Stato;
    switch (Tipo) {
    case StampaPrenotula:
        ComponiPrenotula(vp, Stato, Nota, Tipo);
        return true;
    case StampaPreventivo:
        ComponiPreventivo(vp, Stato, Nota);
        return true;
    case StampaFatturaSintetica:
    case StampaFatturaAnalitica:
        ComponiFattura(vp, Stato, Nota, Tipo);
        return true;
    case StampaNotaGiudiziale:
        ComponiNotaSpese(vp, Stato, Nota);
        return true;
    case StampaContratto:
        ComponiContratto(vp, Stato, Nota);
        return true;
    case StampaInformativa:
        ComponiInformativa(vp, Nota);
        return true;
    case StampaSoloContabile:
        ComponiSoloContabile(vp, Stato, Nota, Tipo);
        return true;
    default:
        return false;
    }
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
    const bool Composto = ComponiDocumento(vp, Nota, Tipo);
    AvvisaClausole();  // a message may bring the next composition, and this one has ended
    return Composto;
}

QString LeggiFileTesto(const QString& Percorso)
{
    const QByteArray MarcaUtf8 = "\xEF\xBB\xBF"_ba;
    try {
        const QByteArray Byte = LeggiFile(TrovaFile(PercorsoNativo(Percorso)), MassimoTesto);
        return Byte.startsWith(MarcaUtf8) ? QString::fromUtf8(Byte.sliced(MarcaUtf8.size())) : DaCp1252(Byte);
    } catch (const Errore&) {
        return {};
    }
}
