// Work on disks that may not answer: a share whose server is gone holds whoever asks for it, for minutes.
#pragma once

#include <QString>

#include <functional>
#include <optional>

/// Does it on a thread of its own, for which nobody waits. What it throws is nobody's; what it uses must be
/// its own.
void FaiAParte(std::function<void()> Lavoro);

/// Waits for what was begun so, at most that long. @return false when something still goes on
bool AttendiLavoriAParte(int Ms);

/// Waits as AttendiLavoriAParte. When something still goes on the process ends here with this exit status,
/// its streams flushed and nothing taken down that the work may be using; otherwise it comes back.
void AttendiOFinisci(int Ms, int Esito);

/// EsisteCartella with an answer within two seconds: a folder of which the disk says nothing counts as there,
/// since one that is missing is told at once.
[[nodiscard]] bool EsisteCartellaEntro(const QString& Percorso);

/// EsisteFile with an answer within the same time; nothing where the disk says nothing.
[[nodiscard]] std::optional<bool> EsisteFileEntro(const QString& Percorso);
