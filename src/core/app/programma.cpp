#include "core/app/programma.h"

#include "core/app/apritori.h"
#include "core/app/suggerimenti.h"
#include "core/app/tastoguida.h"
#include "core/modErrori.h"
#include "platform/base/errore.h"
#include "platform/kit/aspetto.h"
#include "platform/kit/collega.h"
#include "platform/kit/servizi_qt.h"
#include "platform/network/rete_qt.h"
#include "platform/network/segnale.h"

void PreparaProgramma()
{
    // Termina alone ends the program, because Qt would end it with the first message box, closed while no
    // window is up yet.
    QApplication::setQuitOnLastWindowClosed(false);
    aspetto::Prepara();
    InstallaServiziQt();
    InstallaSegnale();
    InstallaReteQt({[] { return Respira(); }, {}});
    InstallaUltimaRete([](const Errore& Guasto) { GestioneErrori(Guasto); });
    RiempiApritori();
    InstallaTastoGuida();
    InstallaSuggerimenti();
}
