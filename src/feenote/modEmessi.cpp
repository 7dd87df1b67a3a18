#include "feenote/modEmessi.h"

#include "feenote/modFatturaXml.h"
#include "feenote/modNumeraFattura.h"
#include "feenote/modStorno.h"
#include "feenote/modTotali.h"
#include "platform/base/regionale.h"
#include "platform/system/orologio.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool operator==(const NumeroEmesso& A, const NumeroEmesso& B)
{
    if (A.Data != B.Data)
        return false;
    const auto Giorno = LeggiData(A.Data);
    return A.Numero == B.Numero ||
           (Giorno && NumeroSenzaAnno(A.Numero, *Giorno) == NumeroSenzaAnno(B.Numero, *Giorno));
}

bool EUscita(const StatoTenuto& Tenuto)
{
    return Tenuto.Importi && Tenuto.Stato != StatoNota::Bozza;
}

NumeroEmesso NumeroInMano(const Parcella& Nota)
{
    const auto Data = LeggiData(Nota.DatiPar(DatoDataFatt));
    if (!FatturaNumerata(Nota) || !Data)
        return {};
    return {Nota.DatiPar(DatoNumFatt).simplified(), Format(*Data, u"dd/mm/yyyy")};
}

qsizetype PostoEmesso(const Parcella& Nota)
{
    const NumeroEmesso Ora = NumeroInMano(Nota);
    const QList<DocumentoEmesso>& Tutti = Nota.Stato.Emessi;
    const auto Suo = std::ranges::find_if(Tutti, [&](const DocumentoEmesso& Uno) {
        return Uno.Storno == ENotaDiCredito(Nota) && NumeroEmesso{Uno.Numero, Uno.Data} == Ora;
    });
    return Ora.Numero.isEmpty() || Suo == Tutti.end() ? -1 : Suo - Tutti.begin();
}

bool EUltimo(const Parcella& Nota)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    const NumeroEmesso Ora = NumeroInMano(Nota);
    return !Ora.Numero.isEmpty() && Ora == NumeroEmesso{Tenuto.Numero, Tenuto.Data} &&
           ENotaDiCredito(Nota) == Tenuto.Storno;
}

bool HaFile(const Parcella& Nota)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    const QString& Firma = Nota.FatturaXml.DiFattura;
    const auto Giorno = LeggiData(Firma.section(u'|', 1));
    const bool SuaFirma =
        Giorno && NumeroEmesso{Firma.section(u'|', 0, 0).simplified(), Format(*Giorno, u"dd/mm/yyyy")} ==
                      NumeroEmesso{Tenuto.Numero, Tenuto.Data};
    return Tenuto.Emessa && !Tenuto.Numero.isEmpty() && (Tenuto.ConFile || SuaFirma);
}

bool EAltroDocumento(const Parcella& Nota, bool Storno)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    return Tenuto.Storno != Storno ||
           (HaFile(Nota) && NumeroEmesso{Tenuto.Numero, Tenuto.Data} != NumeroInMano(Nota));
}

bool HaFileScritto(const Parcella& Nota)
{
    if (!EUscita(Nota.Stato))
        return false;
    const qsizetype Posto = PostoEmesso(Nota);
    return Posto >= 0 ? Nota.Stato.Emessi[Posto].ConFile : EUltimo(Nota) && HaFile(Nota);
}

namespace {

/// The one in hand has gone out already, on paper, beside the one before it.
bool UscitoAccanto(const Parcella& Nota)
{
    return EUltimo(Nota) && !HaFile(Nota);
}

double TotaleInVista(const Parcella& Nota)
{
    const int InVista = Nota.cmbTipoStampa;
    const int Tipo = TipoDi(InVista).EFattura ? InVista : int(StampaFatturaAnalitica);
    return Arrotonda2(CatenaFiscale(RaccogliFattura(Nota, Tipo)).Totale);
}

}  // namespace

std::optional<NumeroEmesso> ForseScartato(const Parcella& Nota)
{
    const StatoTenuto& Tenuto = Nota.Stato;
    const bool Storno = ENotaDiCredito(Nota);
    const NumeroEmesso Ora = NumeroInMano(Nota);
    if (Ora.Numero.isEmpty() || !EUscita(Tenuto) || PostoEmesso(Nota) >= 0)
        return std::nullopt;
    NumeroEmesso Primo;
    double Totale = 0.0;
    if (UscitoAccanto(Nota)) {
        if (Tenuto.Emessi.isEmpty())
            return std::nullopt;
        const DocumentoEmesso& Ultimo = Tenuto.Emessi.last();
        if (Ultimo.Storno != Storno || !Ultimo.ConFile || Ultimo.AMano > 0)
            return std::nullopt;
        Primo = {Ultimo.Numero, Ultimo.Data};
        Totale = Ultimo.Importi.Totale;
    } else {
        if (Tenuto.Storno != Storno || !EAltroDocumento(Nota, Storno))
            return std::nullopt;
        Primo = {Tenuto.Numero, Tenuto.Data};
        Totale = Tenuto.Importi->Totale;
    }
    if (NumeroEmesso{Primo.Numero, Ora.Data} != Ora) {
        Parcella AlSuoPosto = Nota;
        PrendiIlPosto(AlSuoPosto);
        if (TotaleInVista(AlSuoPosto) != Arrotonda2(Totale))
            return std::nullopt;
    }
    return Primo;
}

void PrendiIlPosto(Parcella& Nota)
{
    StatoTenuto& Tenuto = Nota.Stato;
    if (UscitoAccanto(Nota)) {
        if (Tenuto.Emessi.isEmpty() || !Tenuto.Importi)
            return;
        // What the former had taken away is what it takes away; the rest is paid of it.
        const ImportiDocumento Suoi = Tenuto.Emessi.takeLast().Importi;
        Tenuto.Importi->AccCorrispettivi = Suoi.AccCorrispettivi;
        Tenuto.Importi->AccSpeseImp = Suoi.AccSpeseImp;
        Tenuto.Importi->AccSpeseEsenti = Suoi.AccSpeseEsenti;
        Tenuto.Importi->DelSocio = Suoi.DelSocio;
        return;
    }
    const NumeroEmesso Ora = NumeroInMano(Nota);
    Tenuto.Numero = Ora.Numero;
    Tenuto.Data = Ora.Data;
    Tenuto.NumeroPrima.clear();
    Tenuto.DataPrima.clear();
    Tenuto.ConFile = false;
    Tenuto.Giorni[size_t(StatoNota::Fatturata)] = Format(Oggi(), u"dd/mm/yyyy");
}
