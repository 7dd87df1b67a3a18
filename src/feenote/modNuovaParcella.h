// How a note begins.
#pragma once

struct Decreto;
struct Parcella;

/// A cleared record, its lists empty. The name, the modes of insertion and the link between windows stay.
void AzzeraNota(Parcella& Nota);

/// A new note: cleared record, category CIV with nothing selected, its lists loaded, the session's rates
/// in VAT and pension fund, and the general expenses that its decree grants. A failure to read the reference
/// database is reported, and the lists stay as far as they were filled.
void NuovaParcella(Parcella& Nota, const Decreto& Legge);
/// The same under the decree of new notes.
void NuovaParcella(Parcella& Nota);

/// The note goes from one decree to another: general expenses that are as a new note has them by the former
/// become what it has by the other; the user's own stay, on the way back too.
void PortaSpeseGenerali(Parcella& Nota, const Decreto& Prima, const Decreto& Nuova);
