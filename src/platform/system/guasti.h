// Failures that tests ask for. The program itself changes none of these values; its waits are in attese.h.
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

/// The system's code with which it refuses to give a file another name, as a disk that is full or fails; 0
/// lifts it.
inline int RinominaRifiutata = 0;

/// Files under this folder answer to their names in any case, as on sticks and on many shares; an empty path
/// lifts it. What asks for them is what cartelle.h has of names.
inline QString SenzaMaiuscole;

/// The system's code with which it refuses the second of the two steps that other letters' case takes there;
/// 0 lifts it.
inline int SecondoNomeRifiutato = 0;

/// The system's code with which it refuses to change the permissions of a file, as a share that keeps none; 0
/// lifts it.
inline int PermessiRifiutati = 0;

/// The system gives no file another owner or group, as to who is of neither.
inline bool GruppoRifiutato = false;

/// Nobody may set the date of a file, as on a share with an owner of its own.
inline bool DateRifiutate = false;

/// Asked before the bytes of a finished file are waited for, with its path; false is a disk that fails.
inline std::function<bool(const QString& File)> PrimaDelDisco;

/// Asked before a folder is waited for, with the file whose name it holds by now; false is a disk that fails.
inline std::function<bool(const QString& File)> PrimaDellaCartella;

/// The system knows no locks of files, as on some network disks: what is locked shows to nobody.
inline bool SenzaBlocchi = false;

/// A file has its name from its first byte on, as on network disks and sticks.
inline bool SenzaFileAnonimi = false;

/// Every database opened or created from now on may grow to this many pages of 4096 bytes, as on a full disk;
/// 0 lifts the limit.
inline int LimitePagine = 0;

}  // namespace guasti
