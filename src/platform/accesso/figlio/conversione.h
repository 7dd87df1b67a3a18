// From an Access file to a database of this program's kind.
#pragma once

#include <QJsonObject>
#include <QString>

#include <functional>

/// Writes the copy; it must not be there yet.
/// @param Chiusa runs when both files are open and nothing of the Access file has been read but its first
/// page: from then on no other file is needed
/// @param Avanzate is handed the rows written so far, now and then
/// @return "tabelle" with name and rows of each, "tralasciati" with what is left out and why
/// @throws Errore 3343 and those of the writing; the copy is of no use then
[[nodiscard]] QJsonObject CopiaTutto(const QString& Da, const QString& A, const std::function<void()>& Chiusa,
                                     const std::function<void(qint64 Righe)>& Avanzate);
