#include "feenote/windows/notarecente.h"

#include "core/modRecenti.h"
#include "core/parametri.h"
#include "core/sessione.h"
#include "feenote/modTotali.h"
#include "feenote/parcella.h"
#include "platform/system/orologio.h"
#include "platform/system/percorsi.h"

using namespace Qt::StringLiterals;

namespace {

/// True for a file below a folder; none lies below an empty one.
bool SottoCartella(const QString& Percorso, const QString& Cartella)
{
    const QString Sopra = PercorsoNativo(Barra(Cartella));
    return !Sopra.isEmpty() && Percorso.startsWith(Sopra, Qt::CaseInsensitive);
}

bool LavoroDelloStudio(const QString& Percorso)
{
    if (SottoCartella(Percorso, Barra(sessione::UserFolder) + u"recupero"_s) ||
        FinisceInCartella(CartellaFile(Percorso), u"Modelli"_s))
        return false;
    // Asked of its own settings, since the session knows the folder only behind the opening of a note.
    return !SottoCartella(Percorso, ImpostazioneDi(u"Praxivo"_s, u"CartellaLocale"_s)) ||
           SottoCartella(Percorso, sessione::ParcellePath);
}

}  // namespace

void RicordaNota(const Parcella& Nota)
{
    const QString Percorso = PercorsoNativo(Nota.Percorso);
    if (Percorso.isEmpty() || !LavoroDelloStudio(Percorso))
        return;
    const int Tipo = Nota.cmbTipoStampa;
    RicordaRecente({.Percorso = Percorso,
                    .Cliente = Nota.txtCliente.Testo,
                    .Documento = TipoDi(Tipo).Nome.toString(),
                    .Netto = CatenaFiscale(Nota, ETipoStampa(Tipo) ? Tipo : int(StampaPrenotula)).Netto,
                    .Data = Oggi()});
}
