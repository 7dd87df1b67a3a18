#include "feenote/modEmessi.h"

#include "feenote/modFatturaXml.h"
#include "feenote/modStorno.h"
#include "platform/base/regionale.h"

#include <algorithm>

using namespace Qt::StringLiterals;

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
    const bool SuaFirma = Giorno && Firma.section(u'|', 0, 0).simplified() == Tenuto.Numero &&
                          Format(*Giorno, u"dd/mm/yyyy") == Tenuto.Data;
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
