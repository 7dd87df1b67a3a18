// Names of clients and counterparties in the law-office database.
#pragma once

#include <QString>

#include <optional>

/// Column Nominativo of a client by its key; empty optional when there is no such row or no archive.
[[nodiscard]] std::optional<QString> CercaCliente(int IDCli);

/// A name column of a counterparty by its key: "Nominativo" for a new note, "Controp" for a saved one.
/// Each use keeps its own column.
[[nodiscard]] std::optional<QString> CercaControparte(int IDCon, const QString& Colonna);
