#include "core/programma.h"

#include "core/apritori.h"
#include "core/modErrori.h"
#include "core/modFiltri.h"
#include "platform/aspetto.h"
#include "platform/campo.h"
#include "platform/collega.h"
#include "platform/network/segnale.h"
#include "platform/servizi_qt.h"

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
