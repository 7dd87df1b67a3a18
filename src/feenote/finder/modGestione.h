// What the finder does to the file of a note: deletion and another name, as the user meets them.
#pragma once

#include <QString>

#include <functional>

/// Deletes the file of a note, asking what must be asked: a template, a protected note, the deletion itself.
///
/// A template's attribute is taken away only when the file goes, and is there again where it stays.
/// @param Tolta runs when the file has gone, before the user is told
/// @return true when it has gone
/// @throws Errore 53 it is gone already, 75 the file or its folder refuses, as ControllaPsw
bool CancellaNota(const QString& Percorso, const std::function<void()>& Tolta);

/// Gives the file of a note another name in its folder, asking for it. Another file of that name is never
/// replaced; a template stays one.
/// @param Rinominata runs with the new path when the file bears its name, before the user is told
/// @return true when it bears another name
/// @throws Errore 53 it is gone already, 52 too long a name, 75 the file or its folder refuses, as
/// ControllaPsw
bool RinominaNota(const QString& Percorso, const std::function<void(const QString& Nuovo)>& Rinominata);
