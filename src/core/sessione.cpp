#include "core/sessione.h"

using namespace Qt::StringLiterals;

namespace {

void AzzeraImpostazioni()
{
    using namespace sessione;
    for (QString* Testo :
         {&PercorsoProg, &ArchivioCliCon, &StudioNome, &StudioIndir, &StudioCitta, &StudioCodFisc,
          &StudioMail, &StudioPIva, &Firma, &ParcellePath, &ModelliPath, &Iban, &UserFolder, &SfondoDesktop})
        *Testo = QString();
    IVA = 21.0F;
    RA = 20.0F;
    SpeseGen = 12.5F;
    CP = 4.0F;
    CercaAgg = true;
    WP = u"-1"_s;
    ProgFatt = 0;
    ColoreSfondoDesktop = 2508052;
    ColoreEtichette = 16777215;
    ColoreEtichetteBordo = 0;
    ColoreEtichettaSel = 255;
}

}  // namespace

void AzzeraSessione()
{
    using namespace sessione;
    AzzeraImpostazioni();
    for (QString* Testo :
         {&TitoloProdotto, &PrefissoOdbc, &PercorsoVDM, &CartellaLocale, &ArchivioPrat, &TestoDebug})
        *Testo = QString();
    GiorniSett.fill({});
    Mesi.fill({});
    ModoLow = false;
    ModoDebug = false;
    RichiestaPV2 = {};
}
