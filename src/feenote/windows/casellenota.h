// The controls of a note's window to which a sentence leads.
#pragma once

/// Each page knows its own: see Casella of `SchedaDatiBase` and the others.
enum class CasellaNota {
    Cliente,
    Controparte,
    Onorari,  ///< the lines of a page
    Spese,
    Acconti,
    SpeseGen,  ///< the switches of the taxes, and what they take in percent
    CP,
    Iva,
    RA,
    PercSpeseGen,
    PercCP,
    PercIva,
    PercRA,
    TipoStampa,
    Oggetto,
    BloccoCliente,      ///< the client as it prints
    BloccoControparte,  ///< the counterparty as it prints
    DataDocumento,      ///< of pro-forma note and estimate
    NumeroFattura,
    DataFattura,
    RegimeSemplificato,
    IvaDifferita,
};
