// Which payments a document takes away: those behind an invoice that has gone out are paid of it.
#pragma once

#include "feenote/modTotali.h"

/// The electronic invoice is to be a credit note; its paper is one where it is an invoice.
[[nodiscard]] bool ENotaDiCredito(const Parcella& Nota);

/// The place of the invoice that a credit note takes back, -1 where there is none: the one that it cites, by
/// number and day; of one that cites none the last invoice before it. A cited invoice that is not there is
/// that of another file, or was let go.
/// @param Usciti what has gone out of its file, the oldest first
/// @param Storno the place of the credit note
[[nodiscard]] qsizetype FatturaStornata(const QList<DocumentoEmesso>& Usciti, qsizetype Storno);
/// What the credit notes among the documents of a file take back of each of them, euro.
[[nodiscard]] QList<double> RipresiDagliStorni(const QList<DocumentoEmesso>& Usciti);
/// The place of that invoice, for each document of Stato.Emessi and, last, of that one.
[[nodiscard]] QList<qsizetype> FattureStornate(const StatoTenuto& Tenuto);

/// The credit note in hand cites an invoice that is none of those which the note has sent out: that of
/// another file, a number that is mistyped, or one so old that the note no longer knows it. It takes back
/// none of them, and none of their payments away.
[[nodiscard]] bool CitataAltrove(const Parcella& Nota);
inline constexpr QStringView FraseCitataAltrove = u"La fattura citata non è fra quelle che questa parcella "
                                                  u"ricorda: la nota di credito non ne storna nessuna";

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

/// The same for what an invoice asks for by law, its electronic file and the state that is kept of it: one
/// that has gone out with this number already takes away what it had taken away then, as long as its
/// payments still begin the list, and whether or not the sheet in view lists them. Its paper takes away all
/// that are listed when it is printed.
[[nodiscard]] AccontiDetratti AccontiFatturati(const Parcella& Nota, int Tipo);
/// What is said of a credit note of which the payments leave nothing.
[[nodiscard]] QString FraseCreditoVuoto(double Totale);
/// What is said where both differ.
/// @param Fattura total of the invoice, euro
[[nodiscard]] QString FraseAccontiDopo(const Parcella& Nota, int Tipo, double Fattura);
/// The chain with these payments.
[[nodiscard]] DatiCatena RaccogliFattura(const Parcella& Nota, int Tipo);
