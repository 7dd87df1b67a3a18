// One program for the files of a desktop: a start with a file gives it to the session that is running.
#pragma once

#include <QString>

#include <functional>

/// Begins a session, unless the file of its command line goes to a running one of this user and these
/// settings.
///
/// A session that begins with a file listens before it opens it, so that of several starts at one moment one
/// is the session and gets the files of the others; one without a file listens once it is up. It takes files
/// until it ends, unless it was started by "-low" or by the companion application, or another one of the
/// user's takes them already. A file that is open comes to the front; one that comes while a question waits
/// is opened behind the answer; where the answer ends the session, the program is started again for it.
/// @param Comincia opens what the command line asks for
/// @return false when the file has gone to the other session, and this start is over
bool ComeUnaSessione(const QString& RigaDiComando, const std::function<void()>& Comincia);

/// True while a file has come that is not open yet: the session has a reason to live.
[[nodiscard]] bool FileInArrivo();

/// The note of a file: the window that holds it comes to the front, else one opens.
void MostraParcella(const QString& Percorso);
