// Files with people's data: readable for this user alone.
#pragma once

#include <QByteArray>
#include <QString>

/// Writes the whole file as ScriviFile does, for this user alone from its first byte on.
/// @throws Errore as ScriviFile
void ScriviFilePrivato(const QString& Percorso, const QByteArray& Contenuto);

/// Copies a file into a new one for this user alone; one that is there goes first. What fails leaves nothing.
/// @throws Errore as CopiaFile
void CopiaFilePrivato(const QString& Da, const QString& A);

/// Gives a file the rights of another one. @throws Errore 75 refused
void CopiaPermessi(const QString& Da, const QString& A);
