// A new note made of another one.
#pragma once

#include "feenote/parcella.h"

/// The note as one that was never saved: no file, no password, neither number nor date
/// of its documents, no electronic invoice written. Its
/// associated note stays associated; a window that it was linked to does not.
/// @param ConCliente false: nobody's yet, the counterparty as it was
[[nodiscard]] Parcella Duplicata(const Parcella& Nota, bool ConCliente);
