// What a change of the parameters asks and tells before it is made.
#pragma once

#include "feenote/parcella.h"

#include <QStringList>

/// The note has lines that the parameters have made.
[[nodiscard]] bool HaRighe(const Parcella& Nota);
/// Some sentences, and whether the change is wanted.
[[nodiscard]] bool ConfermaModifica(QStringList Righe);
/// The question before the lines are calculated anew.
/// @param Perdite what the change takes away besides, a sentence each
[[nodiscard]] bool ConfermaRicalcolo(const QStringList& Perdite = {});
/// Tells what a change takes away that asks nothing; nothing where that is nothing.
void AvvisaPerdite(const QStringList& Perdite);
