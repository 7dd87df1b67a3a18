// How a document words the client of a note.
#pragma once

#include "addressbook/modClienti.h"
#include "feenote/parcella.h"

#include <QString>

/// The client block of a document in one of its forms; empty for FormaBlocco::Nessuna.
[[nodiscard]] QString BloccoCliente(const DatiCliente& Cliente, FormaBlocco Forma);

/// Composes txtDatiStaCli from the client of the note: the archive's row while there is a link, the text of
/// txtCliente otherwise. Nothing changes for a note without a client, for a document that names none, and
/// for a link that leads nowhere, which is told: "Cliente non trovato!".
///
/// A company's block brings the representative of its row along, once for each client: what the user writes
/// over it stays until the client changes.
void GetDatiStaCli(Parcella& Nota, FormaBlocco Forma);
