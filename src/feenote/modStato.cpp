#include "feenote/modStato.h"

#include "feenote/modEmessi.h"
#include "feenote/modFatturaXml.h"
#include "feenote/modInterruttori.h"
#include "feenote/modPagamenti.h"
#include "feenote/modStorno.h"
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
    const QList<double> Ripresi = RipresiDellaNota(Tenuto);
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
        const double Pagato = AlCentesimo(Resti[i] - Ripresi[i]);
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

/// How a document goes out.
enum class ModoUscita {
    Foglio,          ///< printed, exported or sent
    FoglioNumerato,  ///< the same of an invoice that has number and date
    File,            ///< its electronic file is written, which says what is asked for
};

/// A document that goes out, as it stands to what the note has gone out by before.
struct Uscente
{
    int Tipo = -1;
    bool Numerata = false;
    bool ComeFile = false;
    bool Storno = false;  ///< nobody owes a credit note, not even the draft that is shown before its number
    bool Primo = false;   ///< what a draft has been sent by before is of another time
    bool PesaDiPiu = false;  ///< it asks for more than what has gone out: see Peso
    bool Altro = false;      ///< it follows the last one, which stands beside it
    bool Vale = false;       ///< from now on the note has gone out by it
};

/// A sheet of what was paid, or of what an electronic file says, is a copy: that is asked for, whatever is
/// printed behind it, and the associated note stays as it was then.
bool ECopia(const Parcella& Nota, const Uscente& Suo)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    if (Suo.ComeFile || Suo.Altro)
        return false;
    const bool DelFile = Suo.Numerata && Suo.Storno == Tenuto.Storno && HaFile(Nota) &&
                         NumeroEmesso{Tenuto.Numero, Tenuto.Data} == NumeroInMano(Nota);
    return DelFile || (Tenuto.Stato == StatoNota::Pagata && !ENotaDiCredito(Nota));
}

Uscente Esamina(const Parcella& Nota, int Tipo, ModoUscita Come)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    const int Presente = Tenuto.Stato == StatoNota::Bozza ? 0 : Peso(Tenuto.Documento, Tenuto.Emessa);
    Uscente Suo{.Tipo = Tipo, .Numerata = Come != ModoUscita::Foglio, .ComeFile = Come == ModoUscita::File};
    const int Nuovo = Peso(Tipo, Suo.Numerata);
    Suo.Storno = ENotaDiCredito(Nota) && TipoDi(Tipo).EFattura;
    Suo.Primo = Presente == 0;
    Suo.PesaDiPiu = Nuovo > Presente;
    Suo.Altro = Suo.Numerata && EAltroDocumento(Nota, Suo.Storno);
    Suo.Vale = Suo.PesaDiPiu || (Nuovo == Presente && !ECopia(Nota, Suo));
    return Suo;
}

/// The note has gone out by it.
void MettiInMano(Parcella& Nota, const Uscente& Suo)
{
    StatoTenuto& Tenuto = Nota.Stato;
    // While it is known what the one before had taken away of the associated note's payments.
    const ImportiDocumento Importi = ImportiInUscita(Nota, Suo.Tipo, Suo.Numerata);
    if (Suo.Primo)
        Tenuto.Emessi.clear();
    else if (Suo.Altro)
        TieniEmesso(Nota, Suo.Storno);
    Tenuto.Documento = Suo.Tipo;
    Tenuto.Emessa = Suo.Numerata;
    Tenuto.Storno = Suo.Storno;
    const NumeroEmesso Ora = Suo.Numerata ? NumeroInMano(Nota) : NumeroEmesso();
    if (Suo.Primo || Suo.Altro || NumeroEmesso{Tenuto.Numero, Tenuto.Data} != Ora)
        Tenuto.ConFile = false;
    Tenuto.Numero = Ora.Numero;
    Tenuto.Data = Ora.Data;
    Tenuto.CitataNumero = Suo.Storno ? Nota.FatturaXml.CitataNumero.simplified() : QString();
    Tenuto.CitataData = Suo.Storno ? GiornoCitato(Nota) : QString();
    Tenuto.NumeroPrima.clear();
    Tenuto.DataPrima.clear();
    Tenuto.ConSocio = Nota.Multipla();
    TieniSocio(Nota);
    Tenuto.Importi = Importi;
}

/// What the document that has just gone out makes of a paid note.
/// @param Era the state before it
void SeguePagata(Parcella& Nota, const Uscente& Suo, const StatoTenuto& Era)
{
    StatoTenuto& Tenuto = Nota.Stato;
    if (!Suo.Altro) {
        if (Suo.ComeFile && Tenuto.Importi != Era.Importi)
            NonPiuPagata(Nota);
        return;
    }
    // Where nothing is left of the next invoice either, payments have paid all of them.
    const bool EraPagata = Era.Stato == StatoNota::Pagata && Era.Prima && Tenuto.Stato != Era.Stato;
    if (!EraPagata || !CoperturaDi(Nota).Coperta)
        return;
    Tenuto.Prima = Tenuto.Stato;
    Tenuto.Stato = StatoNota::Pagata;
    GiornoDi(Tenuto, StatoNota::Pagata) = Era.Dal();
}

bool SegnaUscita(Parcella& Nota, int Tipo, ModoUscita Come)
{
    const StatoTenuto Era = Nota.Stato;
    StatoTenuto& Tenuto = Nota.Stato;
    const Uscente Suo = Esamina(Nota, Tipo, Come);
    // Called a draft again, a note begins anew.
    if (Suo.Numerata && Tenuto.Stato != StatoNota::Bozza && PostoEmesso(Nota) >= 0)
        return false;
    const StatoNota Verso = Suo.Numerata ? StatoNota::Fatturata : StatoNota::Inviata;
    if (Suo.Vale) {
        if (Suo.PesaDiPiu && GiornoDi(Tenuto, Verso).isEmpty())
            GiornoDi(Tenuto, Verso) = Giorno();
        MettiInMano(Nota, Suo);
        SeguePagata(Nota, Suo, Era);
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
    const ImportiDocumento Ora = ImportiInUscita(Nota, Tipo, true);
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

bool NotaInviata(Parcella& Nota, int Tipo)
{
    if (!ETipoStampa(Tipo) || !TipoDi(Tipo).Riepilogo)
        return false;
    return SegnaUscita(Nota, Tipo,
                       TipoDi(Tipo).EFattura && FatturaNumerata(Nota) ? ModoUscita::FoglioNumerato
                                                                      : ModoUscita::Foglio);
}

bool NotaFatturata(Parcella& Nota)
{
    const int InVista = Nota.cmbTipoStampa;
    const StatoTenuto Era = Nota.Stato;
    const int Tipo = TipoDi(InVista).EFattura ? InVista : int(StampaFatturaAnalitica);
    (void)SegnaUscita(Nota, Tipo, ModoUscita::File);
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
