// Sequential terms: the deadlines that run one after another from a hearing.
//
// Each link counts in days, forward, from the adjusted due date of the one before.
#pragma once

#include "calculators/modTermini.h"

#include <QList>

#include <span>

/// One deadline of a chain.
struct Anello
{
    int Giorni = 0;
    QStringView Didascalia;
};

/// An entry of cmbArticolo.
struct ArticoloTermini
{
    int Numero = 0;  ///< of the article of the code of civil procedure
    QStringView Voce;
    std::span<const Anello> Catena;
};

/// The articles in the order of cmbArticolo.
[[nodiscard]] std::span<const ArticoloTermini> Articoli();

/// A deadline computed. The flags are of this link alone.
struct ScadenzaAnello
{
    QDate Data;
    bool Prorogata = false;
    bool SettembreSospeso = false;  ///< see ContoTermine
};

/// The hearing date that lacks or is none.
[[nodiscard]] std::optional<Mancanza<CampoTermine>> DifettoUdienza(const QString& Udienza);

/// The deadlines of a chain from a checked hearing date; of the options only suspension and Saturday count.
/// @param Articolo position in Articoli()
/// @throws Errore 5 outside the calendar, 9 no such article, 13 the text is no date
[[nodiscard]] QList<ScadenzaAnello> CalcolaSequenza(const QString& Udienza, int Articolo,
                                                    OpzioniTermine Opzioni);

/// True when one of the links has left out days that the law in force lets run (see AvvisoSettembre).
[[nodiscard]] bool SettembreSospeso(const QList<ScadenzaAnello>& Scadenze);

/// Caption of the result: a line break, then caption, date in words and " (Posticipato)" of each link, two
/// line breaks (CR LF) between them.
[[nodiscard]] QString TestoSequenza(int Articolo, const QList<ScadenzaAnello>& Scadenze);
