#include "finestre.h"

#include "bersaglio.h"

#include "platform/kit/aspetto.h"
#include "platform/kit/servizi_qt.h"

void PreparaFinestre()
{
    PreparaSessione();
    if (QCoreApplication::instance() != nullptr)
        return;
    (void)CartellaDiLavoro();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int Quanti = 1;
    static char Nome[] = "bersaglio";
    static char* Argomenti[] = {Nome, nullptr};
    // Never deleted: the engine of the inputs ends the process without asking anybody.
    new Applicazione(Quanti, Argomenti);
    aspetto::Prepara();
}
