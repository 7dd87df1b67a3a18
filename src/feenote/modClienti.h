// Clients and counterparties in the law-office database, and how a document words the client.
#pragma once

#include "feenote/parcella.h"

#include <QString>

#include <optional>

/// Column Nominativo of a client by its key; empty optional when there is no such row or no archive.
[[nodiscard]] std::optional<QString> CercaCliente(int IDCli);

/// A name column of a counterparty by its key: "Nominativo" for a new note, "Controp" for a saved one.
/// Each use keeps its own column.
[[nodiscard]] std::optional<QString> CercaControparte(int IDCon, const QString& Colonna);

/// What documents take of a client's row. Texts are trimmed; what the row lacks is empty.
struct DatiCliente
{
    QString Nominativo;
    QString Indirizzo, Cap, Citta, Prov;
    QString CodFis, PIva;
    QString DataNascita;  ///< dd/mm/yyyy
    QString ComuneNascita;
    QString RapprLegale;  ///< name of who signs for a company

    friend bool operator==(const DatiCliente&, const DatiCliente&) = default;
};
/// The row of a client by its key; empty optional as for CercaCliente. A column that the archive does not
/// have is empty.
[[nodiscard]] std::optional<DatiCliente> LeggiCliente(int IDCli);
/// A legal representative, or a tax code of the eleven digits that no person's has, makes it a company.
[[nodiscard]] bool ESocieta(const DatiCliente& Cliente);

/// The client block of a document in one of its forms; empty for FormaBlocco::Nessuna.
[[nodiscard]] QString BloccoCliente(const DatiCliente& Cliente, FormaBlocco Forma);

/// Composes txtDatiStaCli from the client of the note: the archive's row while there is a link, the text of
/// txtCliente otherwise. Nothing changes for a note without a client, for a document that names none, and
/// for a link that leads nowhere, which is told: "Cliente non trovato!".
///
/// A company's block brings the representative of its row along, once for each client: what the user writes
/// over it stays until the client changes.
void GetDatiStaCli(Parcella& Nota, FormaBlocco Forma);
