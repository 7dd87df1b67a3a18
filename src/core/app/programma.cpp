#include "core/app/programma.h"

#include "core/app/apritori.h"
#include "core/modErrori.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/campo.h"
#include "platform/kit/collega.h"
#include "platform/kit/modFiltri.h"
#include "platform/kit/servizi_qt.h"
#include "platform/network/segnale.h"

void PreparaProgramma()
{
    // The end is asked for by name: a message closed before the first window must not be taken for it.
    QApplication::setQuitOnLastWindowClosed(false);
    aspetto::Prepara();
    InstallaServiziQt();
    InstallaSegnale();
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    InstallaFiltro(FiltroTasti);
    RiempiApritori();
}
