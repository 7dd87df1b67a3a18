// Whose program is at the other end of a local connection.
#pragma once

class QLocalSocket;

/// True when the system says that it is this user's; where the system says nothing it is nobody's.
[[nodiscard]] bool PresaDiQuestoUtente(const QLocalSocket& Presa);
