// One address into one file: the program's only network operation.
#pragma once

#include "platform/network/rete.h"

#include <QString>

#include <functional>

/// What a copy is allowed, and how it is watched.
struct OpzioniCopia
{
    bool Silenziosa = false;  ///< a failure shows no message
    qint64 MassimoByte = qint64(64) << 20;
    /// Asked again and again while the caller waits, on his thread; false stops. Absent: RespiroRete.
    std::function<bool(qint64 Ricevuti, qint64 Totale)> Passo;
};

/// The request of a copy, as CopiaURL makes it.
[[nodiscard]] RichiestaRete RichiestaCopia(const QString& Indirizzo, const QString& File, qint64 MassimoByte);

/// Copies what an address answers into a file, whatever the status of the answer; the caller waits.
///
/// A file that is there is deleted once the server answers. What has come of a copy that fails stays. A
/// failure shows a message, unless it is a silent copy or the user himself has stopped it.
/// @param Dettaglio takes the failure in a few words; empty on success
/// @return 0, or an error number
[[nodiscard]] int CopiaURL(const QString& Indirizzo, const QString& File, const OpzioniCopia& Opzioni = {},
                           QString* Dettaglio = nullptr);
