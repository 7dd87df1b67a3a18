// Paths: "\" and "/" are both separators in what comes in; what goes to the system has its own.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <functional>

/// The path with exactly one separator at its end (the platform's); an empty one stays empty.
[[nodiscard]] QString Barra(const QString& Percorso);

/// The path with the platform's separators, doubled ones folded (a leading pair of a network share stays).
[[nodiscard]] QString PercorsoNativo(const QString& Percorso);

/// The part after the last separator, the whole text when there is none.
[[nodiscard]] QString NomeFile(const QString& Percorso);

/// The part up to and with the last separator, empty when there is none.
[[nodiscard]] QString CartellaFile(const QString& Percorso);

/// True when the path ends in this folder name, whatever the separators: ("C:\x\Modelli\", "Modelli").
[[nodiscard]] bool FinisceInCartella(const QString& Percorso, const QString& Nome);

/// A file of a fixed name, found whatever its case, since the names of the design come from a system
/// that ignores it. The exact name wins; with no match the exact path comes back.
[[nodiscard]] QString TrovaFile(const QString& Percorso);

[[nodiscard]] bool EsisteCartella(const QString& Percorso);  ///< true for a folder, false for a file
[[nodiscard]] bool EsisteFile(const QString& Percorso);      ///< true for a file, false for a folder

/// Creates the whole path. @throws Errore 75 when it cannot be made
void CreaCartella(const QString& Percorso);

/// The read-only attribute: no writing permission for the owner. It is read from the permission bits,
/// so that it holds for the superuser too.
[[nodiscard]] bool SolaLettura(const QString& Percorso);
/// @throws Errore 75 when the attribute cannot be changed, 53 when no file is there
void ImpostaSolaLettura(const QString& Percorso, bool Attiva);

/// True when a file can be created in the folder, judged by the permission bits (superuser too).
[[nodiscard]] bool CartellaScrivibile(const QString& Cartella);

/// Opens an existing file for exclusive writing; true when that fails, and when an office program has it
/// open. A missing file is not in use.
[[nodiscard]] bool FileInUso(const QString& Percorso);

/// The whole file, at most `MassimoByte` bytes.
/// @throws Errore 53 missing, 75 unreadable or a folder, 7 larger than the limit
[[nodiscard]] QByteArray LeggiFile(const QString& Percorso, qint64 MassimoByte = qint64(64) << 20);

/// Reads a file from its beginning in pieces, until `Prendi` wants no more of them.
/// @throws Errore 53 missing, 75 unreadable or a folder
void LeggiAPezzi(const QString& Percorso, const std::function<bool(QByteArrayView)>& Prendi);

/// Writes the whole file through a temporary one and a rename: the former file stays until the new one
/// is complete. @throws Errore 75 refused, 76 no folder, 61 disk full
void ScriviFile(const QString& Percorso, const QByteArray& Contenuto);

/// Writes a file that is not there yet. One that somebody else puts there meanwhile stays.
/// @return false when something of this very name is there. @throws Errore as ScriviFile
bool CreaFile(const QString& Percorso, const QByteArray& Contenuto);

/// For tests: no file larger than this is completed by ScriviFile, as on a full disk; 0 lifts the limit.
void LimitaDisco(qint64 Byte);

/// For tests: files under this folder refuse any change of their attributes, as on a read-only medium, to the
/// superuser too; an empty path lifts it.
void SimulaSupportoBloccato(const QString& Cartella);

/// Puts a finished file in the place of another in one step, on the same disk; the other one is gone then.
/// @throws Errore 53 no such file, 75 refused; both files are then as before
void SostituisciFile(const QString& Nuovo, const QString& Vecchio);
