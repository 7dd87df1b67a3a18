#include "feenote/modStato.h"

#include "feenote/modEmessi.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modInterruttori.h"
#include "feenote/modResti.h"
#include "feenote/modStorno.h"
#include "feenote/modTotali.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString Giorno()
{
    return Format(Oggi(), u"dd/mm/yyyy");
}

QString& GiornoDi(StatoTenuto& Tenuto, StatoNota Stato)
{
    return Tenuto.Giorni[size_t(Stato)];
}

/// What a document weighs as the one that the note has gone out by: none, one that asks nobody for money, one
/// that does, an invoice with number and date.
int Peso(int Tipo, bool Numerata)
{
    if (!ETipoStampa(Tipo))
        return 0;
    return Numerata ? 3 : ChiedePagamento(Tipo) ? 2 : 1;
}

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

/// An amount as the file holds it, so that a note read back equals the one that was written.
double InCentesimi(double Euro)
{
    const double Tondo = QString::number(Arrotonda2(Euro), 'f', 2).toDouble();
    return Tondo == 0 ? 0.0 : Tondo;
}

/// An invoice whose VAT the client pays to the treasury himself.
bool ConScissione(const Parcella& Nota, int Tipo)
{
    return Nota.FatturaXml.Scissione && ETipoStampa(Tipo) && TipoDi(Tipo).EFattura;
}

ImportiDocumento Importi(const DatiCatena& Dati, bool Scissione)
{
    const Catena Conti = CatenaFiscale(Dati);
    return {InCentesimi(Conti.Imponibile),
            InCentesimi(Conti.CP),
            InCentesimi(Conti.IVA),
            InCentesimi(Conti.Totale),
            InCentesimi(Conti.RA),
            InCentesimi(Scissione ? Conti.Netto - Conti.IVA : Conti.Netto),
            InCentesimi(Dati.Acconti.AccontiCorrispettivi),
            InCentesimi(Dati.Acconti.AccontiSpeseImp),
            InCentesimi(Dati.Acconti.AccontiSpeseEsenti)};
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
    return AccontiTenuti{InCentesimi(Suoi.AccontiCorrispettivi), InCentesimi(Suoi.AccontiSpeseImp),
                         InCentesimi(Suoi.AccontiSpeseEsenti)};
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
    return Chiesti.IVA != 0 && InCentesimi(Chiesti.Totale - Chiesti.RA - Chiesti.IVA) == Chiesti.Netto;
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

/// What the credit notes of a file take back of each of its documents.
QList<double> RipresiDa(const StatoTenuto& Tenuto)
{
    QList<DocumentoEmesso> Usciti = Tenuto.Emessi;
    Usciti.append({.Storno = Tenuto.Storno,
                   .Importi = *Tenuto.Importi,
                   .CitataNumero = Tenuto.CitataNumero,
                   .CitataData = Tenuto.CitataData});
    return RipresiDagliStorni(Usciti);
}

/// Each document that has asked for money is paid, less what its credit notes take back, whatever lines came
/// since or went.
bool DocumentiSaldati(const Parcella& Nota)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    if (std::ranges::any_of(Tenuto.Emessi, [](const DocumentoEmesso& Uno) { return !Uno.Guasto.isEmpty(); }))
        return false;  // what it asked for is not known
    QList<double> Resti = RestiDellaNota(Nota);
    const QList<double> Ripresi = RipresiDa(Tenuto);
    const qsizetype Ultimo = Tenuto.Emessi.size();
    bool Chiesto = false;
    for (qsizetype i = 0; i <= Ultimo; ++i) {
        const bool Storno = i < Ultimo ? Tenuto.Emessi[i].Storno : Tenuto.Storno;
        Chiesto = Chiesto || (!Storno && (i < Ultimo || HaChiesto(Tenuto)));
        Resti[i] = Storno || (i == Ultimo && !HaChiesto(Tenuto)) ? 0.0 : Resti[i] - Ripresi[i];
    }
    return Chiesto && std::ranges::all_of(Resti, [](double Resto) { return InCentesimi(Resto) <= 0; });
}

bool Conferma(Parcella& Nota, const StatoTenuto& Era)
{
    if (Nota.Stato == Era)
        return false;
    SetModificata(Nota, true);
    return true;
}

/// Whoever sums sees the last document beside the one that goes out.
void TieniEmesso(Parcella& Nota, bool Storno)
{
    StatoTenuto& Tenuto = Nota.Stato;
    if (!Tenuto.Emessa || !Tenuto.Importi || Tenuto.Stato < StatoNota::Fatturata)
        return;
    const QList<double> Resti = RestiDellaNota(Nota);
    const QList<double> Ripresi = RipresiDa(Tenuto);
    Tenuto.Emessi.append({.Documento = Tenuto.Documento,
                          .Storno = Tenuto.Storno,
                          .ConSocio = Tenuto.ConSocio,
                          .Numero = Tenuto.Numero,
                          .Data = Tenuto.Data,
                          .Importi = *Tenuto.Importi,
                          .CitataNumero = Tenuto.CitataNumero,
                          .CitataData = Tenuto.CitataData,
                          .Dal = GiornoDi(Tenuto, StatoNota::Fatturata),
                          .ConFile = HaFile(Nota)});
    GiornoDi(Tenuto, StatoNota::Fatturata) = Giorno();
    // What has paid the invoices so far has not paid the next one. What the user has said is paid needs no
    // payments that say so.
    const bool AMano = Tenuto.Stato == StatoNota::Pagata && !Tenuto.Prima;
    for (qsizetype i = 0; i < Tenuto.Emessi.size(); ++i) {
        DocumentoEmesso& Uno = Tenuto.Emessi[i];
        if (!AMano || !Storno)
            Uno.DalPrima.reset();
        // Nobody has paid what a credit note had taken back before.
        const double Pagato = InCentesimi(Resti[i] - Ripresi[i]);
        if (AMano && !Uno.Storno && Pagato > 0) {
            Uno.AMano += Pagato;
            if (Storno)
                Uno.DalPrima = Uno.Dal;
            Uno.Dal = Tenuto.Dal();
        }
    }
    if (Tenuto.Stato == StatoNota::Pagata && !Storno) {
        Tenuto.Stato = StatoNota::Fatturata;
        Tenuto.Prima.reset();
        GiornoDi(Tenuto, StatoNota::Pagata).clear();
    }
    if (Tenuto.Emessi.size() > MassimiEmessi)
        Tenuto.Emessi.remove(0, Tenuto.Emessi.size() - MassimiEmessi);
}

/// The day of the invoice that a credit note in hand cites.
QString GiornoCitato(const Parcella& Nota)
{
    const auto Citata = LeggiData(Nota.FatturaXml.CitataData);
    return Citata ? Format(*Citata, u"dd/mm/yyyy") : QString();
}

/// Of what is asked for now more is left than what was.
void NonPiuPagata(Parcella& Nota)
{
    StatoTenuto& Tenuto = Nota.Stato;
    if (Tenuto.Stato != StatoNota::Pagata || !Tenuto.Prima || CoperturaDi(Nota).Coperta)
        return;
    Tenuto.Stato = StatoNota::Fatturata;
    Tenuto.Prima.reset();
    GiornoDi(Tenuto, StatoNota::Pagata).clear();
}

/// @param ComeFile its electronic file is written, which says what is asked for; a sheet of what was paid
///                 already, or has its file, is a copy
bool SegnaUscita(Parcella& Nota, int Tipo, bool Numerata, bool ComeFile = false)
{
    const StatoTenuto Era = Nota.Stato;
    StatoTenuto& Tenuto = Nota.Stato;
    // Called a draft again, a note begins anew.
    if (Numerata && Tenuto.Stato != StatoNota::Bozza && PostoEmesso(Nota) >= 0)
        return false;
    const StatoNota Verso = Numerata ? StatoNota::Fatturata : StatoNota::Inviata;
    // What a draft has been sent by before is of another time.
    const int Presente = Tenuto.Stato == StatoNota::Bozza ? 0 : Peso(Tenuto.Documento, Tenuto.Emessa);
    const int Nuovo = Peso(Tipo, Numerata);
    // Nobody owes a credit note, not even the draft of it that is shown before it has its number.
    const bool Storno = ENotaDiCredito(Nota) && TipoDi(Tipo).EFattura;
    const bool Altro = Numerata && EAltroDocumento(Nota, Storno);
    // What was paid, and what an electronic file says, is asked for whatever sheet is printed behind it.
    const bool DelFile = Numerata && Storno == Tenuto.Storno && HaFile(Nota) &&
                         NumeroEmesso{Tenuto.Numero, Tenuto.Data} == NumeroInMano(Nota);
    const bool Copia = !ComeFile && !Altro && Nuovo == Presente &&
                       (DelFile || (Tenuto.Stato == StatoNota::Pagata && !ENotaDiCredito(Nota)));
    if (Nuovo >= Presente && !Copia) {
        if (Nuovo > Presente && GiornoDi(Tenuto, Verso).isEmpty())
            GiornoDi(Tenuto, Verso) = Giorno();
        const DatiCatena Dati = Numerata ? CatenaCheEsce(Nota, Tipo) : CatenaDelDocumento(Nota, Tipo);
        const auto DelSocio =
            DettiDelSocio(Nota, Tipo, Numerata);  // while it is known what it had taken away
        if (Presente == 0)
            Tenuto.Emessi.clear();
        else if (Altro)
            TieniEmesso(Nota, Storno);
        Tenuto.Documento = Tipo;
        Tenuto.Emessa = Numerata;
        Tenuto.Storno = Storno;
        const NumeroEmesso Ora = Numerata ? NumeroInMano(Nota) : NumeroEmesso();
        if (Presente == 0 || Altro || NumeroEmesso{Tenuto.Numero, Tenuto.Data} != Ora)
            Tenuto.ConFile = false;
        Tenuto.Numero = Ora.Numero;
        Tenuto.Data = Ora.Data;
        Tenuto.CitataNumero = Storno ? Nota.FatturaXml.CitataNumero.simplified() : QString();
        Tenuto.CitataData = Storno ? GiornoCitato(Nota) : QString();
        Tenuto.NumeroPrima.clear();
        Tenuto.DataPrima.clear();
        Tenuto.ConSocio = Nota.Multipla();
        TieniSocio(Nota);
        Tenuto.Importi = Importi(Dati, ConScissione(Nota, Tipo));
        Tenuto.Importi->DelSocio = DelSocio;
        if (ComeFile && !Altro && Tenuto.Importi != Era.Importi)
            NonPiuPagata(Nota);
        // Where nothing is left of the next invoice either, payments have paid all of them.
        if (Altro && Era.Stato == StatoNota::Pagata && Tenuto.Stato != Era.Stato && Era.Prima &&
            CoperturaDi(Nota).Coperta) {
            Tenuto.Prima = Tenuto.Stato;
            Tenuto.Stato = StatoNota::Pagata;
            GiornoDi(Tenuto, StatoNota::Pagata) = Era.Dal();
        }
    }
    if (Verso > Tenuto.Stato) {
        Tenuto.Stato = Verso;
        GiornoDi(Tenuto, Verso) = Giorno();
    }
    return Conferma(Nota, Era);
}

/// The file of an earlier document is written again: it asks for what that file says.
void RimandaEmesso(Parcella& Nota, qsizetype Posto, int Tipo)
{
    ImportiDocumento Ora = Importi(CatenaCheEsce(Nota, Tipo), ConScissione(Nota, Tipo));
    Ora.DelSocio = DettiDelSocio(Nota, Tipo, true);
    DocumentoEmesso& Uno = Nota.Stato.Emessi[Posto];
    Uno.ConFile = true;
    if (Uno.Storno) {
        Uno.CitataNumero = Nota.FatturaXml.CitataNumero.simplified();
        Uno.CitataData = GiornoCitato(Nota);
    }
    if (Ora == Uno.Importi && Uno.Guasto.isEmpty())
        return;
    Uno.Guasto.clear();  // it is known again what it asks for
    Uno.Documento = Tipo;
    Uno.ConSocio = Nota.Multipla();
    Uno.AMano = std::min(Uno.AMano, std::max(0.0, Ora.Netto));
    Uno.Importi = Ora;
    NonPiuPagata(Nota);
}

/// What has gone out as an invoice is one while it has number and date. Its credit note takes both over
/// before it is written: the invoice stands until then.
void SegueNumero(const Parcella& Nota, StatoNota& Stato)
{
    const bool Vale = FatturaNumerata(Nota) || (ENotaDiCredito(Nota) && !Nota.Stato.Storno);
    if (Stato == StatoNota::Inviata || Stato == StatoNota::Fatturata)
        Stato = Vale ? StatoNota::Fatturata : StatoNota::Inviata;
}

/// A number that is put right is that of the last document; neither that of an earlier one, which is looked
/// at again, nor what has been typed on the way to it.
void CorreggiNumero(Parcella& Nota)
{
    StatoTenuto& Tenuto = Nota.Stato;
    NumeroEmesso Ora = NumeroInMano(Nota);
    if (Ora.Numero.isEmpty() || ENotaDiCredito(Nota) != Tenuto.Storno)
        return;
    const bool Corretto = !Tenuto.NumeroPrima.isEmpty();
    const NumeroEmesso Prima = Corretto ? NumeroEmesso{Tenuto.NumeroPrima, Tenuto.DataPrima}
                                        : NumeroEmesso{Tenuto.Numero, Tenuto.Data};
    if (PostoEmesso(Nota) >= 0)
        Ora = Prima;
    Tenuto.Numero = Ora.Numero;
    Tenuto.Data = Ora.Data;
    const bool Diverso = Ora != Prima;
    Tenuto.NumeroPrima = Diverso ? Prima.Numero : QString();
    Tenuto.DataPrima = Diverso ? Prima.Data : QString();
}

}  // namespace

bool ChiedePagamento(int Tipo)
{
    return ETipoStampa(Tipo) && TipoDi(Tipo).Credito;
}

bool NotaInviata(Parcella& Nota, int Tipo)
{
    if (!ETipoStampa(Tipo) || !TipoDi(Tipo).Riepilogo)
        return false;
    return SegnaUscita(Nota, Tipo, TipoDi(Tipo).EFattura && FatturaNumerata(Nota));
}

bool NotaFatturata(Parcella& Nota)
{
    const int InVista = Nota.cmbTipoStampa;
    const StatoTenuto Era = Nota.Stato;
    const int Tipo = TipoDi(InVista).EFattura ? InVista : int(StampaFatturaAnalitica);
    (void)SegnaUscita(Nota, Tipo, true, true);
    if (const qsizetype Posto = PostoEmesso(Nota); Posto >= 0)
        RimandaEmesso(Nota, Posto, Tipo);
    else if (EUltimo(Nota))
        Nota.Stato.ConFile = true;
    return Conferma(Nota, Era);
}

bool ScegliStato(Parcella& Nota, StatoNota Scelto)
{
    StatoTenuto& Tenuto = Nota.Stato;
    if (Scelto == StatoNota::Ignoto || Scelto == Tenuto.Stato)
        return false;
    const StatoTenuto Era = Tenuto;
    // What that very word had called paid before the credit note was not paid either.
    for (DocumentoEmesso& Uno : Tenuto.Emessi)
        if (const auto Prima = std::exchange(Uno.DalPrima, std::nullopt)) {
            Uno.AMano = 0.0;
            Uno.Dal = *Prima;
        }
    Tenuto.Stato = Scelto;
    Tenuto.Prima.reset();
    if (!ETipoStampa(Tenuto.Documento))
        Tenuto.Storno = ENotaDiCredito(Nota);
    // Else the number would make it an invoice again at once.
    if (Scelto == StatoNota::Inviata)
        Tenuto.Emessa = false;
    else if (Scelto == StatoNota::Fatturata)
        Tenuto.Emessa = TipoDi(Tenuto.Documento).EFattura && FatturaNumerata(Nota);
    // A choice that puts a wrong one right brings the day back; what is paid is paid today.
    if (GiornoDi(Tenuto, Scelto).isEmpty() || Scelto == StatoNota::Pagata)
        GiornoDi(Tenuto, Scelto) = Giorno();
    return Conferma(Nota, Era);
}

StatoTenuto SoloBozza(const StatoTenuto& Tenuto)
{
    if (Tenuto.Stato != StatoNota::Bozza)
        return Tenuto;
    StatoTenuto Sola = StatoDiNuova();
    GiornoDi(Sola, StatoNota::Bozza) = Tenuto.Dal();
    Sola.Socio = Tenuto.Socio;
    return Sola;
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

bool SegueStato(Parcella& Nota, Copertura& Vista)
{
    const StatoTenuto Era = Nota.Stato;
    StatoTenuto& Tenuto = Nota.Stato;
    if (Tenuto.Emessa) {
        SegueNumero(Nota, Tenuto.Stato);
        if (Tenuto.Prima)
            SegueNumero(Nota, *Tenuto.Prima);
        if (!HaFile(Nota))
            CorreggiNumero(Nota);
    }
    const Copertura Ora = CoperturaDi(Nota);
    if (Ora.Coperta && Ora != Vista && Tenuto.Stato != StatoNota::Pagata) {
        Tenuto.Prima = Tenuto.Stato;
        Tenuto.Stato = StatoNota::Pagata;
        GiornoDi(Tenuto, StatoNota::Pagata) = Giorno();
    } else if (!Ora.Coperta && Vista.Coperta && Tenuto.Stato == StatoNota::Pagata && Tenuto.Prima) {
        Tenuto.Stato = *Tenuto.Prima;
        Tenuto.Prima.reset();
        GiornoDi(Tenuto, StatoNota::Pagata).clear();
    }
    Vista = Ora;
    return Conferma(Nota, Era);
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
    return SocioTenuto{InCentesimi(Nota.Multi.TotOnorariMulti),     InCentesimi(Nota.Multi.TotSpeseImpMulti),
                       InCentesimi(Nota.Multi.TotSpeseEsentiMulti), InCentesimi(Pagati.AccontiCorrispettivi),
                       InCentesimi(Pagati.AccontiSpeseImp),         InCentesimi(Pagati.AccontiSpeseEsenti)};
}

void TieniSocio(Parcella& Nota)
{
    Nota.Stato.Socio = SocioDellaNota(Nota);
}
