// The road of a term: what its computation did, step by step, in the order of the count.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

/// What a step did.
enum class GenerePasso {
    GiornoIniziale,    ///< the day of the event, which is not counted
    InizioDifferito,   ///< the event falls into the suspension: the term begins at its end
    GiorniContati,     ///< days of the term
    Calendario,        ///< months or years by the common calendar
    Sospensione,       ///< days of the suspension, left out
    GiorniRecuperati,  ///< days that the suspension took from months or years, counted behind their end
    GiornoLibero,      ///< the day more of a free term
    Festivo,           ///< a holiday on which the term would end
    Domenica,          ///< the same, a Sunday
    Sabato,            ///< the same, a Saturday that moves
    SabatoFermo,       ///< a Saturday that does not move, because no verified rule says so
    SenzaSospensione,  ///< the suspension does not hold for this term or matter
    GiornoFinale,      ///< the due date
};

/// One step. Backward counts run from later to earlier days, and so do `Da` and `A`.
struct PassoStrada
{
    QDate Da;
    QDate A;         ///< the same day as `Da` for a single day
    int Giorni = 0;  ///< days from `Da` to `A`, both included; 0 for the first and the final day, for months
                     ///< and years and for what moves nothing
    GenerePasso Genere = GenerePasso::GiornoFinale;
    QString Norma;                ///< what says so, for the user
    bool NonRiscontrato = false;  ///< rests on a criterion that no source has confirmed
    QString Nota{};               ///< the holiday's name, the months counted; empty for none

    friend bool operator==(const PassoStrada&, const PassoStrada&) = default;
};

using Strada = QList<PassoStrada>;

/// What a step whose criterion is not verified says.
inline constexpr QStringView CriterioNonRiscontrato = u"criterio non riscontrato";
/// The same as a note under a result.
inline constexpr QStringView NotaNonRiscontrato = u"Criterio non riscontrato";
/// The norm of the steps of the program's own rules.
inline constexpr QStringView CriterioDelProgramma = u"criterio del programma";

/// "Sospensione feriale": what a step is called.
[[nodiscard]] QString NomePasso(GenerePasso Genere);
/// The name with the step's note: "Festivo: lunedì di Pasqua".
[[nodiscard]] QString DescrizionePasso(const PassoStrada& Passo);
/// "gg/mm/aaaa", or "gg/mm/aaaa - gg/mm/aaaa" for more than one day.
[[nodiscard]] QString DatePasso(const PassoStrada& Passo);
/// The norm, and "criterio non riscontrato" where that holds.
[[nodiscard]] QString NormaPasso(const PassoStrada& Passo);
/// True when a step rests on a criterion that no source has confirmed.
[[nodiscard]] bool NonRiscontrata(const Strada& Passi);
/// A row for each step, tabs between dates, days, description and norm: what is copied.
[[nodiscard]] QString TestoStrada(const Strada& Passi);
