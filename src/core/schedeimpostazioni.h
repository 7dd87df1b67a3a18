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

}  // namespace impostazioni
