#include "core/modErrori.h"

#include "core/aperture.h"
#include "core/sessione.h"
#include "platform/base/errore.h"
#include "platform/system/messaggi.h"
#include "platform/system/shell.h"

using namespace Qt::StringLiterals;

namespace {

void Traccia()
{
    if (Aperture.MostraTraccia)
        Aperture.MostraTraccia(u"FINESTRA DEBUG:\n"_s + sessione::TestoDebug);
}

}  // namespace

bool GestioneErrori(const Errore& Guasto, int Ignora)
{
    const bool DaMostrare = Guasto.Numero > 0 && Guasto.Numero != Ignora;
    if (DaMostrare) {
        if (!sessione::TestoDebug.isEmpty())
            Traccia();
        MsgErrore(u"Errore: "_s + Guasto.Descrizione + u" ("_s + QString::number(Guasto.Numero) + u')');
    }
    Clessidra(false);
    return DaMostrare;
}

bool RiferisciCorrente(int Ignora)
{
    return GestioneErrori(ErroreCorrente(), Ignora);
}

void MsgErrore(const QString& Testo)
{
    MsgBox(Testo, vbCritical, TitoloErrore.toString());
}

void VerificaEsito(int Esito)
{
    if (Esito != 0)
        throw Errore(Esito);
}

void TraceDebug(const QString& Messaggio)
{
    // The first entry has no line break behind it, so that the second follows it on its line: kept so.
    const bool Prima = sessione::TestoDebug.isEmpty();
    sessione::TestoDebug += u"- "_s + Messaggio;
    if (!Prima)
        sessione::TestoDebug += u'\n';
    Traccia();
}
