// What is done with an update: the archive that takes the former one's place, the installer that is started.
//
// Nothing is used that the publisher's signature does not vouch for, nor anything older than what is in use.
// versioni.txt.sig signs every byte of versioni.txt, whose list gives size and SHA-256 of each file. A server
// on this machine needs no signature, so that whoever publishes can try; one that is there and wrong counts.
#pragma once

#include "update/modAggiorna.h"

/// How a download has ended.
struct EsitoScarico
{
    QString File;       ///< what may be used; empty when it has failed
    QString Dettaglio;  ///< why, in a few words
    bool Annullato = false;

    [[nodiscard]] bool Riuscito() const { return !File.isEmpty(); }
};

/// Brings the rate archive, checks it and puts it in the former one's place in one step; the former stays
/// beside it as Tassi.dat.prima. The new one bears the announced date or today's, the later. A failure leaves
/// everything as it was.
[[nodiscard]] EsitoScarico ScaricaTassi(const Annuncio& Trovato, const PassoAggiornamento& Passo = {});

/// The file that installs the announced version here: the one that the list has for this system, else
/// "upgrade<version>.exe".
[[nodiscard]] QString NomeInstallatore(const Annuncio& Trovato);

/// Brings the installer into the folder of installers, which holds no other one then. One that is there
/// already and whole is not brought again.
[[nodiscard]] EsitoScarico ScaricaProgramma(const Annuncio& Trovato, const PassoAggiornamento& Passo = {});

/// "Errore di download del file di aggiornamento <name> (<why>). ..."
[[nodiscard]] QString FraseDownloadFallito(const QString& Nome, const QString& Dettaglio);

/// What is said of rates that could not be brought; why has no room in it.
inline constexpr QStringView FraseTassiFalliti =
    u"Errore di download dell'archivio indici interessi. Contatattare l'assistenza.";

/// Whether a file is still the one that the list vouches for; asked once more right before it is started.
/// @return what is wrong with it, empty: nothing
[[nodiscard]] QString DifettoFile(const Annuncio& Trovato, const QString& Nome, const QString& File);

/// Bytes that a file of the list will bring, 0 unknown.
[[nodiscard]] qint64 DaScaricare(const Annuncio& Trovato, const QString& Nome);

inline constexpr QStringView NomeTassi = u"tassi.dat";

/// What is brought at most, in bytes; what is published is held to it too.
inline constexpr qint64 MassimoTassi = qint64(32) << 20;
inline constexpr qint64 MassimoInstallatore = qint64(1) << 30;
