// Where the settings are opened from elsewhere.
#pragma once

namespace impostazioni {

/// Tabs of the settings, in their order.
enum Scheda {
    SchedaDatiStudio,
    SchedaDatiContabili,
    SchedaSetup,
    SchedaPersonalizza,
    SchedaFatturaElettronica,
    SchedaDeiDocumenti,
    Schede  ///< how many there are
};

/// Boxes of the settings to which another window leads.
enum class CasellaStudio {
    Genere,
    Nome,
    PartitaIva,
    CodiceFiscale,
    Via,
    Civico,
    Cap,
    Comune,
    Provincia,
    Regime,
    Iban,
    Email,
    Pec,
    Progressivo,  ///< number of the last electronic file
};

}  // namespace impostazioni
