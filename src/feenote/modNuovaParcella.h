// How a note begins.
#pragma once

struct Parcella;

/// A cleared record, its lists empty. The name, the modes of insertion and the link between windows stay.
void AzzeraNota(Parcella& Nota);

/// A new note: cleared record, category CIV with nothing selected, its lists loaded, the session's rates
/// in VAT and pension fund. A failure to read parcelle.mdb is reported, and the lists stay as far as they
/// were filled.
void NuovaParcella(Parcella& Nota);
