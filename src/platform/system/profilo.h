// The classic text files of sections and keys.
//
// 8-bit text in Windows-1252 (a character that it lacks is written "?"), lines "[section]" and
// "key=value". Sections and keys are compared without case; unknown lines, comments and the order of
// lines are kept on writing. No quoting: quotes belong to the value. Where a section stands twice the
// first one counts, and in it the first line of a key.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QStringList>

#include <functional>
#include <utility>

/// The value of a key, without the blanks around it, at most `Massimo` - 1 characters of it.
///
/// @param Predefinito returned as it stands when file, section or key is missing; "key=" is an empty
///        value, not the default
/// @param Massimo size of the classic buffer in characters, its end mark included
/// A file over 1 MiB is read up to that size: such files are a few lines.
/// @throws Errore 75 when the file is there and cannot be read
[[nodiscard]] QString GetPrivateProfileString(const QString& Sezione, const QString& Chiave,
                                              const QString& Predefinito, int Massimo, const QString& File);

/// The bytes of such a file, up to its limit; empty where there is none. @throws Errore 75 as above
[[nodiscard]] QByteArray InizioDelProfilo(const QString& File);

/// Whether the bytes of such a file have a section, however its heading is spelled.
[[nodiscard]] bool SezioneNelProfilo(QByteArrayView Contenuto, const QString& Sezione);

/// Sets a key, adding file, section or key where missing; the file is replaced in one step, and what another
/// program changes at the same moment is kept.
/// Line breaks in section, key or value would forge other lines: they become blanks.
/// @return false when the file cannot be written or would pass 1 MiB, and for a name that could not be
///         read back (a key that is blank, holds "=" or begins with "[" or ";", a section with "]");
///         nothing is lost then
bool WritePrivateProfileString(const QString& Sezione, const QString& Chiave, const QString& Valore,
                               const QString& File);

/// Of the bytes of such a file, as SostituisciChiavi hands them on: the keys of a section as they are
/// written, in their order, and the text of a key; none, and empty, where section or key is missing.
[[nodiscard]] QStringList ChiaviDelProfilo(const QByteArray& Contenuto, const QString& Sezione);
[[nodiscard]] QString ValoreDelProfilo(const QByteArray& Contenuto, const QString& Sezione,
                                       const QString& Chiave);

/// Replaces keys of a section by others in one write: those that `DaTogliere` names go, the new ones stand at
/// the end of the section. Other keys, sections and comments are kept.
/// @param Conserva is given the file that is about to be replaced, while no other program writes it; nothing
/// is written where it throws Errore
/// @return false when nothing was written, for the reasons of WritePrivateProfileString
bool SostituisciChiavi(const QString& Sezione, const std::function<bool(const QString& Chiave)>& DaTogliere,
                       const QList<std::pair<QString, QString>>& Nuove, const QString& File,
                       const std::function<void(const QByteArray& Ora)>& Conserva = {});
