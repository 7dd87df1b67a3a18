// What a credit note takes back of the invoice that went before it in the same file.
#pragma once

#include "feenote/modTotali.h"

/// The electronic invoice is to be a credit note; its paper is one where it is an invoice.
[[nodiscard]] bool ENotaDiCredito(const Parcella& Nota);

/// The payments that a document takes away, row by row.
struct AccontiDetratti
{
    TabellaRighe Propri{AccColonne};
    TabellaRighe Altri{AccColonne};  ///< of the associated note
};
/// All of them for a document that knows payments. A credit note takes away what its invoice had taken away
/// when it went out and what is still listed, be that in one row of its own: what was paid since is paid of
/// the invoice. Where the note does not know its invoice, its payments count as those of any document.
[[nodiscard]] AccontiDetratti AccontiDelDocumento(const Parcella& Nota, int Tipo);
