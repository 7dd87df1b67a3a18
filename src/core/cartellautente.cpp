#include "core/cartellautente.h"

#include "core/sessione.h"
#include "platform/system/cartelle.h"
#include "platform/system/file.h"
#include "platform/system/percorsi.h"
#include "platform/system/permessi.h"

QString CartellaUtente(const QString& Nome)
{
    const QString DiSolito = Barra(Barra(sessione::UserFolder) + Nome);
    const bool Altrui = EsisteCartella(DiSolito) ? !DiQuestoUtente(DiSolito) || !CartellaScrivibile(DiSolito)
                                                 : EsisteCartella(sessione::UserFolder) &&
                                                       !CartellaScrivibile(sessione::UserFolder);
    return Altrui ? CartellaDati() + Barra(Nome) : DiSolito;
}
