// Failures and haste that tests ask for. The program itself changes none of these values.
#pragma once

#include <QString>

#include <functional>

namespace guasti {

/// No file of more bytes than this is completed by ScriviFile and CreaFile, as on a full disk; 0 lifts the
/// limit.
inline qint64 LimiteFile = 0;

/// Files under this folder refuse any change of their attributes, as on a read-only medium, to the superuser
/// too; an empty path lifts it.
inline QString SupportoBloccato;

/// Files under this folder refuse to be deleted, as one does that another program keeps open on some systems;
/// an empty path lifts it.
inline QString FileTrattenuti;

/// Runs before a folder is listed or looked for, in the thread that does it, with its path: who waits here is
/// a network that does not answer. It changes while nothing is listed.
inline std::function<void(const QString& Cartella)> PrimaDiScorrere;

/// How long the start waits for the answer whether a folder is there, in milliseconds.
inline int AttesaCartellaMs = 2000;

/// The system's code with which it refuses to give a file another name, as a disk that is full or fails; 0
/// lifts it.
inline int RinominaRifiutata = 0;

/// The system's code with which it refuses to change the permissions of a file, as a share that keeps none; 0
/// lifts it.
inline int PermessiRifiutati = 0;

/// Asked before the bytes of a finished file are waited for, with its path; false is a disk that fails.
inline std::function<bool(const QString& File)> PrimaDelDisco;

/// The system knows no locks of files, as on some network disks: what is locked shows to nobody.
inline bool SenzaBlocchi = false;

/// A file has its name from its first byte on, as on network disks and sticks.
inline bool SenzaFileAnonimi = false;

/// Every database opened or created from now on may grow to this many pages of 4096 bytes, as on a full disk;
/// 0 lifts the limit.
inline int LimitePagine = 0;

/// How long the databases opened from now on wait for a lock of somebody else, in milliseconds.
inline int AttesaBlocchiMs = 3000;

/// How long a save waits for another program that saves under the same name, in milliseconds.
inline int AttesaTurnoMs = 3000;

/// How long a change of a note may wait for its recovery copy, in milliseconds.
inline int AttesaCopiaMs = 2000;

/// How long what opens a mail must stand for the mail to count as open: without a mail program it ends at
/// once.
inline int AttesaPostaMs = 10'000;

}  // namespace guasti
