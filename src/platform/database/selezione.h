// Which SELECT can be shown row by row: the statement taken apart just as far as that question goes.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// "SELECT <columns> FROM <table> <rest>": one table, plain columns, no grouping.
struct SelezioneSemplice
{
    QString Tabella;
    QStringList Colonne;    ///< as written, quotes taken off; empty for "*"
    QString Resto;          ///< from behind the table: WHERE and ORDER BY as they stand
    bool Ordinata = false;  ///< the rest has an ORDER BY
};

/// None for any other statement (joins, DISTINCT, GROUP BY, expressions, aliases, comments, several
/// statements) and for what cannot be read: such a text goes to the engine as it is.
[[nodiscard]] std::optional<SelezioneSemplice> LeggiSelezione(const QString& Sql);

/// "ORDER BY <column> COLLATE SenzaAccenti [ASC|DESC]", and nothing else behind a table.
struct OrdinePiano
{
    QString Colonna;  ///< quotes taken off
    bool Discendente = false;
};
[[nodiscard]] std::optional<OrdinePiano> LeggiOrdinePiano(const QString& Resto);

/// True when the text begins as a query and not as a table's name.
[[nodiscard]] bool ESelezione(const QString& Sql);
