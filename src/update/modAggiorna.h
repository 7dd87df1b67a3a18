// The search for a newer version and newer rates: what is told. What is done with them stands in scarico.h.
#pragma once

#include "platform/network/rete.h"
#include "update/versioni.h"

#include <QDate>
#include <QString>

#include <functional>
#include <optional>

/// Where updates come from: a server, or the folder that tools/pubblica has laid out.
struct Provenienza
{
    QString Indirizzo;  ///< without a separator at its end; empty: a folder
    QString Cartella;   ///< with it
};

/// The server of the session; an empty address where none is named.
[[nodiscard]] Provenienza DalServer();
/// The folder in which a versioni.txt stands.
[[nodiscard]] Provenienza DallaCartella(const QString& FileVersioni);

/// What a check has brought: the file as it was read, and where from.
struct Annuncio
{
    Provenienza Da;
    QByteArray Byte;
    Versioni Lette;
    bool Letto = false;  ///< there is a file, and its version is no nonsense; its date may still be missing
    QString Difetto;     ///< why there is none, in a few words
};

/// Asked while something is brought, on the caller's thread; false stops.
using PassoAggiornamento = std::function<bool(qint64 Ricevuti, qint64 Totale)>;

/// Brings versioni.txt into the user folder and reads it into the session: VersioneDisp, DataTassiDisp,
/// NotaAgg, which are empty before. The pointer shows that something is going on.
/// @param Interattivo failures are told; a silent search says nothing
/// @return true when the date of the rates is valid
bool ControlloVersioni(const Provenienza& Da, bool Interattivo, Annuncio& Trovato,
                       const PassoAggiornamento& Passo = {});

/// The two halves of the same check, for a caller that does not wait: empties the session's values and gives
/// the request; reads what has come into its file, true as above. @throws Errore 75 when there is no user
/// folder
[[nodiscard]] RichiestaRete InizioControllo(const Provenienza& Da);
bool FineControllo(const RichiestaRete& Chiesta, const Provenienza& Da, bool Interattivo, Annuncio& Trovato);

/// True if the rate archive is older than a date, by days. A missing archive is told, and is false.
[[nodiscard]] bool TassiVecchi(const std::optional<QDate>& Data);

/// What the start says when its search has failed.
void DiRicercaFallita();
/// What it does with a search that has not: version and rates are compared; true when one of them is newer
/// and the user wants the update. In debug mode each step is written to the trace.
[[nodiscard]] bool ProponiAggiornamento();

/// A name of a file's own while it is being brought, beside the file: two programs may do so at once.
[[nodiscard]] QString Provvisorio(const QString& File);
/// Takes away what programs that were ended have left under such names. What somebody may still be at stays.
void TogliAvanzi();

/// The folder of installers, with the separator at its end; see CartellaUtente.
[[nodiscard]] QString CartellaUpgrade();
