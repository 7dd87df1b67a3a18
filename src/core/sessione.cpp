#include "core/sessione.h"

#include "core/impostazioni.h"

void AzzeraSessione()
{
    using namespace sessione;
    AzzeraImpostazioni();
    for (QString* Testo : {&ModelliPath, &TitoloProdotto, &PrefissoOdbc, &PercorsoVDM, &CartellaLocale,
                           &ArchivioPrat, &TestoDebug, &VersioneDisp, &NotaAgg})
        *Testo = QString();
    GiorniSett.fill({});
    Mesi.fill({});
    RicercaFatta = false;
    DataTassiDisp.reset();
    ModoLow = false;
    ModoDebug = false;
    RichiestaPV2 = {};
}
