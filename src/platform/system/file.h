// Files and folders: what is there, reading, writing, who has a file open.
//
// Paths may have both separators, as everywhere (platform/system/percorsi.h).
#pragma once

#include "platform/system/permessi.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

#include <functional>

struct Errore;

/// A file of a fixed name, found whatever its case, since other programs and former versions write it
/// in capitals or not. The exact name wins; with no match the exact path comes back.
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

/// Clears the read-only attribute while it lives, and puts it back where the file still is.
class AttributoSospeso
{
public:
    /// @param AlGuasto is handed the failure to put it back, which nobody else could catch
    /// @throws Errore as ImpostaSolaLettura
    AttributoSospeso(const QString& File, std::function<void(const Errore&)> AlGuasto);
    ~AttributoSospeso();
    AttributoSospeso(const AttributoSospeso&) = delete;
    AttributoSospeso& operator=(const AttributoSospeso&) = delete;

private:
    QString Percorso;
    std::function<void(const Errore&)> Segnala;
    bool Era;
};

/// True when a file can be created in the folder, judged by the permission bits (superuser too).
[[nodiscard]] bool CartellaScrivibile(const QString& Cartella);

/// Opens an existing file for exclusive writing; true when that is refused, and when an office program has it
/// open. A missing file is not in use, nor one whose disk fails.
[[nodiscard]] bool FileInUso(const QString& Percorso);

/// The whole file, at most `MassimoByte` bytes.
/// @throws Errore 53 missing, 75 unreadable or a folder, 7 larger than the limit
[[nodiscard]] QByteArray LeggiFile(const QString& Percorso, qint64 MassimoByte = qint64(64) << 20);

/// Whole content of a text file (Windows-1252 or UTF-8 with a mark), found whatever its case. Any failure
/// gives an empty text, and so does a file larger than LeggiFile takes.
[[nodiscard]] QString LeggiFileTesto(const QString& Percorso);

/// Reads a file from its beginning in pieces, until `Prendi` wants no more of them.
/// @throws Errore 53 missing, 75 unreadable or a folder
void LeggiAPezzi(const QString& Percorso, const std::function<bool(QByteArrayView)>& Prendi);

/// What is built into the program under a name like ":/dati/aliquote.csv". @throws Errore 53 there is none
[[nodiscard]] QByteArray LeggiRisorsa(const QString& Nome);

/// Writes the whole file beside its place and puts it there in one step (see FileAccanto): the former file
/// stays until the new one is on the disk. A link stays a link. @param Chi may read it
/// @throws Errore 75 refused, 76 no folder, 61 no room, 57 the disk fails, 55 another program is writing it
void ScriviFile(const QString& Percorso, const QByteArray& Contenuto, Lettori Chi = Lettori::Tutti);
/// The same of a file that serves another one, which is not written where this fails: one that the disk has
/// not confirmed is refused like any other. @throws Errore as ScriviFile, no NonConfermato
void ScriviAppoggio(const QString& Percorso, const QByteArray& Contenuto, Lettori Chi);

/// Writes a file that is not there yet. One that somebody else puts there meanwhile stays.
/// @param Chi may read it
/// @param Data its last change, which it has from the moment on in which it is there; none: the present
/// @return false when something of this very name is there. @throws Errore as ScriviFile and ImpostaDataFile
bool CreaFile(const QString& Percorso, const QByteArray& Contenuto, Lettori Chi = Lettori::Tutti,
              const QDateTime& Data = {});

/// Keeps what a file has held beside it, its name followed by ".guasto", and by a number from the second text
/// on: none of these copies takes the place of another. @throws Errore as ScriviFile
void ConservaGuasto(const QString& Percorso, const QByteArray& Contenuto, Lettori Chi = Lettori::Tutti);

/// Copies a file piece by piece beside the place that it then takes. `Prosegui` is asked after each piece; a
/// copy that it stops, as one that fails, leaves what was there.
/// @return false when it was stopped. @throws Errore 53, 75, 57, 61 as reading and writing, 7 beyond
/// `MassimoByte`
bool CopiaFile(const QString& Da, const QString& A, qint64 MassimoByte,
               const std::function<bool(qint64 Copiati)>& Prosegui = {}, Lettori Chi = Lettori::Tutti);

/// Time of the last change; null where no file is.
[[nodiscard]] QDateTime DataFile(const QString& Percorso);
/// @throws Errore 53 no such file, 75 refused
void ImpostaDataFile(const QString& Percorso, const QDateTime& Quando);

/// Creates the whole path, its last folder for this user alone; one that is there becomes so. The folders
/// above that it makes are as CreaCartellaDiUtente makes them.
/// @throws Errore 75 when it cannot be made
void CreaCartellaPrivata(const QString& Percorso);

/// Puts a finished file in the place of another in one step, on the same disk, and waits until the folder
/// holds the name; the other one is gone then.
/// @throws Errore 53 no such file, 75 refused, 61 no room: both files are then as before; 57 the disk fails,
/// at the very end perhaps
void SostituisciFile(const QString& Nuovo, const QString& Vecchio);
