// The rate archive Tassi.dat: where it is and how old.
#pragma once

#include <QDate>
#include <QString>

#include <optional>

/// The archive of the user folder, whether it is there or not; full path.
[[nodiscard]] QString ArchivioTassi();

/// Day of the last change of an archive, for the status bars; none when there is no file.
[[nodiscard]] std::optional<QDate> DataArchivio(const QString& Archivio);

/// The question behind what is out of date; the forms open the update on Yes.
/// @param Avviso its first line
/// @return true on Yes
[[nodiscard]] bool ChiediAggiornamento(const QString& Avviso);
