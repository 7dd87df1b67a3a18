// The rows of clients and counterparties in the law-office database.
#pragma once

#include "platform/base/errore.h"

#include <QString>

#include <optional>

/// The office's archive cannot be read: it is gone, damaged, or somebody keeps it locked. That says nothing
/// of who is in it. The description is one sentence with the archive's path.
struct ArchivioIlleggibile : Errore
{
    explicit ArchivioIlleggibile(const Errore& Causa);
};

/// Column Nominativo of a client by its key; empty optional when there is no such row.
/// @throws ArchivioIlleggibile
[[nodiscard]] std::optional<QString> CercaCliente(int IDCli);

/// A name column of a counterparty by its key: "Nominativo" for a new note, "Controp" for a saved one.
/// Each use keeps its own column; the text is empty where the archive does not have it.
/// @throws ArchivioIlleggibile
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
    QString Nazione;      ///< ISO 3166-1, two letters; empty: Italy
    QString Email;
    QString Pec;
    QString CodDestinatario;  ///< where its electronic invoices go: 7 characters, 6 of a public office
    QString TipoSoggetto;     ///< as its card says it; see SoggettoDi

    friend bool operator==(const DatiCliente&, const DatiCliente&) = default;
};
/// The row of a client by its key; empty optional as for CercaCliente. A column that the archive does not
/// have is empty. @throws ArchivioIlleggibile
[[nodiscard]] std::optional<DatiCliente> LeggiCliente(int IDCli);

/// Who a client is to the electronic invoice.
enum class TipoSoggetto { Persona, Societa, Amministrazione, Estero };
/// What a card's text means: "Persona", "Società", "PA", "Estero", and the words that begin so; none else.
[[nodiscard]] std::optional<TipoSoggetto> SoggettoScritto(const QString& Testo);
/// The kind that its card says, else what its country and codes tell.
[[nodiscard]] TipoSoggetto SoggettoDi(const DatiCliente& Cliente);

/// What the card says of it; where that is nothing, a legal representative, or a tax code of the eleven
/// digits that no person's has, makes it a company.
[[nodiscard]] bool ESocieta(const DatiCliente& Cliente);
