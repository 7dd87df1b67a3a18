#include "feenote/modPagamenti.h"

#include "feenote/modEmessi.h"
#include "feenote/modInterruttori.h"
#include "feenote/modResti.h"
#include "feenote/modStorno.h"
#include "feenote/modTotali.h"
#include "platform/base/regionale.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

SommeAcconti AccontiDi(const SocioTenuto& Socio)
{
    return {Socio.AccCorrispettivi, Socio.AccSpeseImp, Socio.AccSpeseEsenti};
}

SommeAcconti Insieme(const SommeAcconti& A, const SommeAcconti& B)
{
    return {A.AccontiCorrispettivi + B.AccontiCorrispettivi, A.AccontiSpeseImp + B.AccontiSpeseImp,
            A.AccontiSpeseEsenti + B.AccontiSpeseEsenti};
}

SommeAcconti Senza(const SommeAcconti& A, const AccontiTenuti& B)
{
    return {A.AccontiCorrispettivi - B.Corrispettivi, A.AccontiSpeseImp - B.SpeseImp,
            A.AccontiSpeseEsenti - B.SpeseEsenti};
}

/// The associated note of one that names it, or has gone out with it, and does not have it at the moment.
std::optional<SocioTenuto> SocioVistoPrima(const Parcella& Nota)
{
    const bool Conta = !Nota.txtPathParcMult.isEmpty() || (EUscita(Nota.Stato) && Nota.Stato.ConSocio);
    return Conta && !Nota.Multipla() ? Nota.Stato.Socio : std::nullopt;
}

/// Adds the associated note to what the note itself gives for a document.
DatiCatena ConSocio(DatiCatena Dati, const Parcella& Nota, const SocioTenuto& Socio)
{
    Dati.Onorari += Socio.Onorari;
    Dati.SpeseImp += Socio.SpeseImp;
    Dati.SpeseEsenti += Socio.SpeseEsenti;
    const UsoAcconti Uso = TipoDi(Dati.Tipo).Acconti;
    if (Uso == UsoAcconti::Sempre || (Uso == UsoAcconti::SeEsposti && Nota.chkAcconti.Attiva))
        Dati.Acconti = Insieme(Dati.Acconti, AccontiDi(Socio));
    return Dati;
}

/// The chain of a document that goes out, whatever the one in view forces on the switches.
DatiCatena CatenaCheEsce(const Parcella& Nota, int Tipo)
{
    if (Tipo == Nota.cmbTipoStampa)
        return RaccogliFattura(Nota, Tipo);
    Parcella Altra = Nota;
    ScegliTipoStampa(Altra, Tipo);
    return RaccogliFattura(Altra, Tipo);
}

/// The same for whoever looks at it.
/// @param Visto the associated note of a note that has none at the moment; none for what prints
DatiCatena CatenaDelDocumento(const Parcella& Nota, int Tipo, const std::optional<SocioTenuto>& Visto = {})
{
    const auto Raccolta = [&](const Parcella& Quella) {
        DatiCatena Dati = RaccogliCatena(Quella, Tipo);
        return Visto ? ConSocio(std::move(Dati), Quella, *Visto) : Dati;
    };
    if (Tipo == Nota.cmbTipoStampa || !ETipoStampa(Tipo))
        return Raccolta(Nota);
    Parcella Altra = Nota;
    ScegliTipoStampa(Altra, Tipo);
    return Raccolta(Altra);
}

/// An invoice whose VAT the client pays to the treasury himself.
bool ConScissione(const Parcella& Nota, int Tipo)
{
    return Nota.FatturaXml.Scissione && ETipoStampa(Tipo) && TipoDi(Tipo).EFattura;
}

ImportiDocumento Importi(const DatiCatena& Dati, bool Scissione)
{
    const Catena Conti = CatenaFiscale(Dati);
    return {AlCentesimo(Conti.Imponibile),
            AlCentesimo(Conti.CP),
            AlCentesimo(Conti.IVA),
            AlCentesimo(Conti.Totale),
            AlCentesimo(Conti.RA),
            AlCentesimo(Scissione ? Conti.Netto - Conti.IVA : Conti.Netto),
            AlCentesimo(Dati.Acconti.AccontiCorrispettivi),
            AlCentesimo(Dati.Acconti.AccontiSpeseImp),
            AlCentesimo(Dati.Acconti.AccontiSpeseEsenti)};
}

/// What a document that goes out takes away of the associated note's payments.
std::optional<AccontiTenuti> DettiDelSocio(const Parcella& Nota, int Tipo, bool Numerata)
{
    if (!Nota.Multipla())
        return std::nullopt;
    Parcella Sua = Nota;
    if (Tipo != Nota.cmbTipoStampa)
        ScegliTipoStampa(Sua, Tipo);
    const AccontiDetratti Tolti = Numerata ? AccontiFatturati(Sua, Tipo) : AccontiDelDocumento(Sua, Tipo);
    const SommeAcconti Suoi = SommaAcconti(Tolti.Altri);
    return AccontiTenuti{AlCentesimo(Suoi.AccontiCorrispettivi), AlCentesimo(Suoi.AccontiSpeseImp),
                         AlCentesimo(Suoi.AccontiSpeseEsenti)};
}

/// The document whose figures are kept.
int DocumentoDegliImporti(const Parcella& Nota)
{
    const int Tipo = DocumentoDelloStato(Nota.Stato.Documento, Nota.cmbTipoStampa, Nota.Stato.Stato);
    return ETipoStampa(Tipo) && TipoDi(Tipo).Riepilogo ? Tipo : int(StampaPrenotula);
}

/// The chain of a document that payments are held against, with all of them. The court costs note knows none,
/// and would hide them.
DatiCatena CatenaPagata(const Parcella& Nota, int Tipo)
{
    const auto Visto = SocioVistoPrima(Nota);
    DatiCatena Dati = CatenaDelDocumento(
        Nota, TipoDi(Tipo).Acconti == UsoAcconti::Mai ? int(StampaPrenotula) : Tipo, Visto);
    Dati.Acconti = CalcolaAcconti(Nota, StampaPrenotula);
    if (Visto)
        Dati.Acconti = Insieme(Dati.Acconti, AccontiDi(*Visto));
    return Dati;
}

/// The net of a document that asks for no VAT, as its figures tell: what is paid of it holds none either.
bool SenzaIva(const ImportiDocumento& Chiesti)
{
    return Chiesti.IVA != 0 && AlCentesimo(Chiesti.Totale - Chiesti.RA - Chiesti.IVA) == Chiesti.Netto;
}

/// A document that has asked for something, with all payments as it reckons them.
/// @param ConSocio the payments of the associated note count
DocumentoDaPagare DaPagare(const Parcella& Nota, int Tipo, const ImportiDocumento& Chiesti, bool Storno,
                           bool ConSocio)
{
    // On lines that came since or went the taxes of a payment would be rounded another way.
    DatiCatena Dati = ConImponibile(CatenaPagata(Nota, Tipo),
                                    Chiesti.Imponibile + Chiesti.AccCorrispettivi + Chiesti.AccSpeseImp);
    const auto Lordi = [&Dati](const SommeAcconti& Acconti) {
        Dati.Acconti = {};
        const double Senza = CatenaFiscale(Dati).Netto;
        Dati.Acconti = Acconti;
        return Arrotonda2(Senza - CatenaFiscale(Dati).Netto);
    };
    const SommeAcconti Propri = SommaAcconti(Nota.xAcconti);
    const SommeAcconti Tutti = Insieme(Propri, AccontiDi(SocioDellaNota(Nota).value_or(SocioTenuto())));
    const double ConIva = Lordi(Tutti);
    if (SenzaIva(Chiesti))
        Dati.IVA.Vale = false;
    DocumentoDaPagare Suo{.Storno = Storno, .ConSocio = ConSocio, .Netto = Chiesti.Netto};
    // A payment that the document had taken away and that is no longer there raises nothing that was asked.
    const SommeAcconti Nominati{Chiesti.AccCorrispettivi, Chiesti.AccSpeseImp, Chiesti.AccSpeseEsenti};
    Suo.Nominati = Lordi(Nominati);
    Suo.Propri = Lordi(Propri);
    Suo.DelSocio = Lordi(Tutti) - Suo.Propri;
    if (ConSocio)
        Suo.NominatiDelSocio =
            Chiesti.DelSocio ? Suo.Nominati - Lordi(Senza(Nominati, *Chiesti.DelSocio)) : Suo.DelSocio;
    if (ConIva > 0 && Lordi(Tutti) > 0)
        Suo.Quota = Lordi(Tutti) / ConIva;
    return Suo;
}

/// A document has gone out that asks for money.
bool HaChiesto(const StatoTenuto& Tenuto)
{
    return EUscita(Tenuto) && Tenuto.Importi->Netto > 0 && !Tenuto.Storno &&
           ChiedePagamento(Tenuto.Documento);
}

/// The file has sent out what asks for money, or takes it back.
bool HaDocumenti(const StatoTenuto& Tenuto)
{
    return HaChiesto(Tenuto) || (EUscita(Tenuto) && (Tenuto.Storno || !Tenuto.Emessi.isEmpty()));
}

/// Each document that has asked for money is paid, less what its credit notes take back, whatever lines came
/// since or went.
bool DocumentiSaldati(const Parcella& Nota)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    if (std::ranges::any_of(Tenuto.Emessi, [](const DocumentoEmesso& Uno) { return !Uno.Guasto.isEmpty(); }))
        return false;  // what it asked for is not known
    QList<double> Resti = RestiDellaNota(Nota);
    const QList<double> Ripresi = RipresiDellaNota(Tenuto);
    const qsizetype Ultimo = Tenuto.Emessi.size();
    bool Chiesto = false;
    for (qsizetype i = 0; i <= Ultimo; ++i) {
        const bool Storno = i < Ultimo ? Tenuto.Emessi[i].Storno : Tenuto.Storno;
        Chiesto = Chiesto || (!Storno && (i < Ultimo || HaChiesto(Tenuto)));
        Resti[i] = Storno || (i == Ultimo && !HaChiesto(Tenuto)) ? 0.0 : Resti[i] - Ripresi[i];
    }
    return Chiesto && std::ranges::all_of(Resti, [](double Resto) { return AlCentesimo(Resto) <= 0; });
}

}  // namespace

double AlCentesimo(double Euro)
{
    const double Tondo = QString::number(Arrotonda2(Euro), 'f', 2).toDouble();
    return Tondo == 0 ? 0.0 : Tondo;
}

ImportiDocumento ImportiInUscita(const Parcella& Nota, int Tipo, bool Numerata)
{
    ImportiDocumento Suoi = Importi(Numerata ? CatenaCheEsce(Nota, Tipo) : CatenaDelDocumento(Nota, Tipo),
                                    ConScissione(Nota, Tipo));
    Suoi.DelSocio = DettiDelSocio(Nota, Tipo, Numerata);
    return Suoi;
}

bool ChiedePagamento(int Tipo)
{
    return ETipoStampa(Tipo) && TipoDi(Tipo).Credito;
}

int DocumentoDelloStato(int Uscito, int InVista, StatoNota Stato)
{
    if (Stato == StatoNota::Bozza || Stato == StatoNota::Ignoto)
        return InVista;
    if (ETipoStampa(Uscito))
        return Uscito;
    return ChiedePagamento(InVista) ? InVista : -1;
}

ImportiDocumento ImportiDellaNota(const Parcella& Nota)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    if (EUscita(Tenuto))
        return *Tenuto.Importi;
    DatiCatena Dati = CatenaDelDocumento(Nota, DocumentoDegliImporti(Nota), SocioVistoPrima(Nota));
    if (Tenuto.Stato == StatoNota::Pagata)
        Dati.Acconti = {};
    return Importi(Dati, ConScissione(Nota, Dati.Tipo));
}

QList<double> RestiDellaNota(const Parcella& Nota)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    QList<DocumentoDaPagare> Documenti;
    for (const DocumentoEmesso& Uno : Tenuto.Emessi) {
        Documenti.append(DaPagare(Nota, Uno.Documento, Uno.Importi, Uno.Storno, Uno.ConSocio));
        Documenti.last().Netto -= Uno.AMano;
    }
    const bool Sola = !EUscita(Tenuto);
    if (Sola)
        Documenti.clear();  // nothing of a draft has gone out
    Documenti.append(DaPagare(Nota, DocumentoDegliImporti(Nota), ImportiDellaNota(Nota),
                              !Sola && Tenuto.Storno, Sola || Tenuto.ConSocio));
    if (!Sola)
        for (const QList<qsizetype> Riprese = FattureStornate(Tenuto); auto& Uno : Documenti)
            Uno.Ripresa = Riprese[&Uno - Documenti.constData()];
    return RestiDeiDocumenti(Documenti);
}

bool UscitaConSocio(const Parcella& Nota)
{
    return EUscita(Nota.Stato) &&
           (Nota.Stato.ConSocio || std::ranges::any_of(Nota.Stato.Emessi, &DocumentoEmesso::ConSocio));
}

std::optional<SocioTenuto> SocioDellaNota(const Parcella& Nota)
{
    if (!Nota.Multipla())
        return !Nota.txtPathParcMult.isEmpty() || UscitaConSocio(Nota) ? Nota.Stato.Socio : std::nullopt;
    const SommeAcconti Pagati = SommaAcconti(Nota.Multi.xAccontiMulti);
    return SocioTenuto{AlCentesimo(Nota.Multi.TotOnorariMulti),     AlCentesimo(Nota.Multi.TotSpeseImpMulti),
                       AlCentesimo(Nota.Multi.TotSpeseEsentiMulti), AlCentesimo(Pagati.AccontiCorrispettivi),
                       AlCentesimo(Pagati.AccontiSpeseImp),         AlCentesimo(Pagati.AccontiSpeseEsenti)};
}

void TieniSocio(Parcella& Nota)
{
    Nota.Stato.Socio = SocioDellaNota(Nota);
}

QList<double> RipresiDellaNota(const StatoTenuto& Tenuto)
{
    QList<DocumentoEmesso> Usciti = Tenuto.Emessi;
    Usciti.append({.Storno = Tenuto.Storno,
                   .Importi = *Tenuto.Importi,
                   .CitataNumero = Tenuto.CitataNumero,
                   .CitataData = Tenuto.CitataData});
    return RipresiDagliStorni(Usciti);
}

Copertura CoperturaDi(const Parcella& Nota)
{
    const auto Prima = SocioVistoPrima(Nota);
    const bool Associati =
        Nota.Multipla() ? !Nota.Multi.xAccontiMulti.Vuota() : Prima && AccontiDi(*Prima) != SommeAcconti();
    if (Nota.xAcconti.Vuota() && !Associati)
        return {};
    DatiCatena Dati = CatenaPagata(Nota, DocumentoDegliImporti(Nota));
    const SommeAcconti& Acconti = Dati.Acconti;
    Copertura Trovata;
    Trovata.Pagati = Acconti.AccontiCorrispettivi + Acconti.AccontiSpeseImp + Acconti.AccontiSpeseEsenti;
    if (Trovata.Pagati <= 0)
        return Trovata;
    const double Resto = CatenaFiscale(Dati).Netto;
    Dati.Acconti = {};
    // What a document has asked for is paid when nothing is left of it, whatever the lines come to by now.
    Trovata.Coperta =
        HaDocumenti(Nota.Stato) ? DocumentiSaldati(Nota) : CatenaFiscale(Dati).Netto > 0 && Resto <= 0;
    return Trovata;
}
