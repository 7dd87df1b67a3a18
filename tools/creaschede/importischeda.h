// The amounts of a sheet: tables of the decree's figures, formulas in words, the worked example.
#pragma once

#include "creaschede/testischede.h"

#include <optional>

/// A formula of the out-of-court tariff as one tells it: so much, and a share of the value beyond a limit.
struct FormulaDetta
{
    double BaseEuro = 0.0;
    double AliquotaPerc = 0.0;
    double OltreEuro = 0.0;  ///< the limit below the bracket

    friend bool operator==(const FormulaDetta&, const FormulaDetta&) = default;
};

/// Takes a formula apart by its values, as the program's evaluator gives them.
/// @return nothing when it does not grow evenly with the value or fails
[[nodiscard]] std::optional<FormulaDetta> Scomponi(const QString& Formula, const ScaglioneValore& Limiti);

/// "€ 200,00 più il 2% della parte oltre € 5.000,00"; a part that is nothing is not told.
[[nodiscard]] QString InParole(const FormulaDetta& Formula);

/// The percentage by which an amount differs from another, "+60%" or "-50%".
/// @return nothing when no whole percentage gives it, to the whole euro
[[nodiscard]] std::optional<QString> Percentuale(double Importo, double Rispetto);

/// How the tables of amounts are to be written.
struct ModoImporti
{
    bool Percentuali = false;  ///< minimum and maximum as percentages of the medium
    QString Riferimento;       ///< criminal: group whose medium the others vary; empty: not told
};

/// True when an amount of the item is in doubt; such amounts are marked with * in the tables.
[[nodiscard]] bool InDubbio(const Tariffe& Dati, const VoceTariffa& Voce);

/// True when the tariff gives the item amounts.
[[nodiscard]] bool HaImporti(const Tariffe& Dati, const QString& Categ, const VoceTariffa& Voce);

/// A group of authorities in which a civil item has amounts, in the order of the list.
[[nodiscard]] QStringList GruppiCivili(const Tariffe& Dati, const VoceTariffa& Voce);

/// The tables, as HTML. A civil one is that of a group, of two or more brackets; the others are whole. Where
/// the tariff has no amount, the row says so.
/// @throws Errore 5 an amount follows by no whole percentage, or a formula cannot be told
[[nodiscard]] QString TabellaCivile(const Tariffe& Dati, const VoceTariffa& Voce, const QString& Gruppo,
                                    const ModoImporti& Modo);
[[nodiscard]] QString TabellaPenale(const Tariffe& Dati, const VoceTariffa& Voce, const ModoImporti& Modo);
[[nodiscard]] QString TabellaStragiudiziale(const Tariffe& Dati, const VoceTariffa& Voce);

/// The reckoning of an out-of-court item at a value, as the program makes it, with its words around it.
/// @param Risposta to the question of the quantity, empty for an item without one
/// @throws Errore 5 the value lies in no bracket
[[nodiscard]] QString Esempio(const Tariffe& Dati, const VoceTariffa& Voce, double ValoreEuro,
                              const QString& Risposta);
