// What payments leave of the documents of one file. Each payment is spent once: on the oldest invoice first,
// what it does not need on the next.
#pragma once

#include <QList>

/// A document of a file that has gone out, with what was paid as it reckons it: taxes included, without VAT
/// where it asks for none. Euro.
struct DocumentoDaPagare
{
    bool Storno = false;     ///< a credit note
    qsizetype Ripresa = -1;  ///< place of the invoice that a credit note takes its net back from, -1 none
    bool ConSocio = false;   ///< payments of the associated note pay it too
    double Netto = 0.0;
    double Nominati = 0.0;          ///< of the payments, what it has taken away itself
    double Propri = 0.0;            ///< all payments of the note
    double DelSocio = 0.0;          ///< all payments of the associated note
    double NominatiDelSocio = 0.0;  ///< of Nominati, those of the associated note
    double Quota = 1.0;             ///< of what the payments are with VAT
};

/// What is left of each of them, the oldest first, never below 0; a credit note stays as it is. What a later
/// document has taken away itself stays taken away, and pays the ones before it: an invoice that settles an
/// account names what was paid on it. What a credit note takes back nobody has to pay, and payments go there
/// last of all.
[[nodiscard]] QList<double> RestiDeiDocumenti(const QList<DocumentoDaPagare>& Documenti);
