// Which notes count as worked on, and what the list of the last ones says of them.
#pragma once

struct Parcella;

/// Puts a note that has a file at the head of the list of the last ones. Recovery copies, templates and what
/// the companion application keeps in its local folder are none of the office's work, unless they lie in the
/// folder of notes.
/// @throws Errore as RicordaRecente
void RicordaNota(const Parcella& Nota);
