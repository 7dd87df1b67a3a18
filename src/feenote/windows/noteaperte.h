// What happens to a file that is open in windows of notes.
#pragma once

#include <QSet>
#include <QString>

/// The files of the notes on screen.
[[nodiscard]] QSet<QString> NoteAperte();

/// A file bears another name: the windows that hold it go on with it under that name, and so do those of
/// notes with which it is associated.
void NotaRinominata(const QString& Vecchio, const QString& Nuovo);

/// A file has gone: the windows that hold it keep their note, as one that was never saved, so that nothing on
/// screen is lost.
void NotaCancellata(const QString& Percorso);
