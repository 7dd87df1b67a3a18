// How a document words the client of a note.
#pragma once

#include "addressbook/modClienti.h"
#include "feenote/parcella.h"

#include <QString>

#include <optional>

/// The form is one sentence, for a person or a company.
[[nodiscard]] bool Discorsiva(FormaBlocco Forma);

/// The name that a block begins with: all of a single line, of several the first that says something.
[[nodiscard]] QString NomeDelBlocco(const QString& Blocco);

/// The user has written the client block of a form. The first block of a client without a link is shown by
/// every form; once another form is written, each keeps the text that it shows then. A linked client's other
/// forms are worded from the archive. Nothing for FormaBlocco::Nessuna.
void ScriviBlocco(Parcella& Nota, FormaBlocco Forma, const QString& Testo);

/// What a form shows of the user's own writing; none where the client is to be worded.
[[nodiscard]] std::optional<QString> BloccoScritto(const Parcella& Nota, FormaBlocco Forma);

/// The client block of a document in one of its forms; empty for FormaBlocco::Nessuna.
[[nodiscard]] QString BloccoCliente(const DatiCliente& Cliente, FormaBlocco Forma);

/// Composes txtDatiStaCli from the client of the note: the archive's row while there is a link, the text of
/// txtCliente otherwise. Nothing changes for a note without a client, for a document that names none, and
/// for a link that leads nowhere, which is told: "Cliente non trovato!".
/// @throws ArchivioIlleggibile
///
/// A company's block brings the representative of its row along, once for each client: what the user writes
/// over it stays until the client changes.
void GetDatiStaCli(Parcella& Nota, FormaBlocco Forma);

/// The row of the client was written to: its representative takes the place of the one that it gave before,
/// unless the user has written over that one or added to it. @throws ArchivioIlleggibile
/// @return true when the note names another one than before
bool SegueRappresentante(Parcella& Nota);
