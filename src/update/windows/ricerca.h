// The search for updates at the start.
#pragma once

/// Looks for updates in the session's server, where one is named, and clears the wish for it. Nobody waits:
/// the transfer begins once a window is painted, and what has come of it is said when no box, menu or drag of
/// the user's is in the way. In debug mode it runs to its end before this comes back, so that the trace keeps
/// its order.
///
/// A search that fails is told once; a newer version, or newer rates, are offered, and the form of updates
/// comes up on Yes. Whoever has opened that form by himself meanwhile is asked nothing.
void CercaAggiornamenti();
