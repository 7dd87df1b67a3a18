// Expenses that another window brings into the note.
#include "feenote/windows/frmParcelle.h"

#include "core/modErrori.h"
#include "feenote/modParametri.h"
#include "feenote/windows/SchedaSpese.h"
#include "platform/grid/griglia.h"

using namespace Qt::StringLiterals;

QString frmParcelle::PortaSpese(const QList<SpesaDiLegge>& Nuove)
{
    if (DialogoAperto)
        return u"una sua domanda aspetta la risposta"_s;
    // The parameters are tested before lines come in, as the tabs of the lines have it.
    if (const auto Mancante = PrimaMancanza(Nota))
        return u"prima completare i dati base ("_s + QString(Mancante->Messaggio).remove(u'!') + u')';
    for (Griglia* Elenco : findChildren<Griglia*>())
        if (!Elenco->Concludi())
            return u"una cella è da correggere"_s;
    if (!Protetta([&] { Spese->Porta(Nuove); }))
        return u"le spese non si possono scrivere"_s;
    Ricomponi();
    return {};
}
