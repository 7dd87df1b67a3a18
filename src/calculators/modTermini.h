// Procedural terms: from a start date, so many days, months or years forward or backward.
//
// The first day is not counted, the last one is (art. 155 c.p.c.). Days of the summer suspension are not
// counted (l. 742/1969); a term that ends on a Sunday or holiday moves on, backward terms move back; from
// 02/03/2006 a Saturday may move too (art. 155, 5° comma). Dates go from 01/01/0100 to 31/12/9999.
#pragma once

#include "calculators/strada.h"
#include "core/mancanza.h"

#include <QDate>
#include <QString>
#include <QStringView>

#include <array>
#include <optional>

/// The entries of cmbIncrTipo, in its order.
inline constexpr std::array<QStringView, 3> VociIncremento{u"Giorni", u"Mesi", u"Anni"};
constexpr int TipoGiorni = 0;
constexpr int TipoMesi = 1;  ///< any other number but these two, no selection included, counts in years

/// How a term is counted: the checks and options of the two forms.
struct OpzioniTermine
{
    bool Sospensione = true;  ///< chkSosp: the summer suspension, 01/08 to 15/09, is skipped
    bool Libero = false;      ///< chkLibero: free term, one day more
    bool Sabato = false;  ///< chkSabato: a Saturday moves like a Sunday, whether the box is enabled or not
    bool Antecedente = false;  ///< optTipoScad(1): counted backward

    friend bool operator==(const OpzioniTermine&, const OpzioniTermine&) = default;
};

/// What a form holds between the steps of one calculation.
struct ContoTermine
{
    OpzioniTermine Opzioni;
    QDate DataCorrente;      ///< the date to count from; afterwards the due date
    int GiorniSospesi = 0;   ///< days of suspension that a count in months or years met, still to be added
    bool Prorogato = false;  ///< the suspension was met, or the date moved off a holiday, Sunday or Saturday
    bool SettembreSospeso = false;  ///< days from 1 to 15 September of 2015 or later were left out
    Strada* Passi = nullptr;        ///< where the counts write down what they do; none: nowhere
};

/// The line under a result that has left out days from 1 to 15 September although the law, from 2015 on, ends
/// the suspension on 31 August. A line of its own, never a part of the result.
inline constexpr QStringView AvvisoSettembre = u"Dal 2015 la sospensione termina il 31 agosto: v. Avvertenze";

/// Counts `Numero` units of `Tipo` (TipoGiorni, TipoMesi, else years) from DataCorrente, which it leaves
/// alone.
///
/// Writes GiorniSospesi, may set Prorogato and SettembreSospeso and never clears them. When a count in months
/// or years met the suspension, the date comes back without free term and holidays: a second count, of
/// GiorniSospesi days, applies them. Months and years are added one at a time: a day that a short month takes
/// away stays lost. A number below 1 counts nothing.
/// @throws Errore 5 when a date falls outside the calendar; `Conto` is then to be thrown away
[[nodiscard]] QDate Conteggio(ContoTermine& Conto, int Numero, int Tipo);

/// Both counts: leaves the due date in DataCorrente. @throws Errore 5
void ContaTermine(ContoTermine& Conto, int Numero, int Tipo);

/// True for a fixed holiday and for Easter Monday; Sundays are not looked at.
[[nodiscard]] bool IsFestivo(const QDate& Data);
/// The same for a text "dd/mm/yyyy"; false for anything else.
[[nodiscard]] bool IsFestivo(const QString& Data);

/// Easter Monday of a year from 100 to 9999 as "dd/mm/yyyy", by Gauss's rule with the constants 24 and 5 and
/// without its two corrections: it leaves the church's calendar in 1954, 1981, 2049 and 2076, and outside
/// 1900-2099. "31/12/1999" for any other year.
[[nodiscard]] QString Pasquetta(int Anno);

/// True for a day of the summer suspension of its year; serves the colours of the calendars.
[[nodiscard]] bool GiornoSospeso(const QDate& Data);

// ---- the form frmTermini --------------------------------------------------------------------------

/// The boxes of the form.
struct DatiTermine
{
    QString Decorrenza;  ///< mskDecorr, with its "_"; a year of two digits is accepted
    QString Numero;      ///< txtIncrNum
    int Tipo = 0;        ///< position of cmbIncrTipo, -1 none
    OpzioniTermine Opzioni;
};

/// Whether a start date lets the Saturday be chosen (from 02/03/2006 on); none when the text is no date: the
/// enabling then stays as it was.
[[nodiscard]] std::optional<bool> SabatoAmmesso(const QString& Decorrenza);

/// The Saturday does not move backward terms: says so and takes the choice away.
/// @return true when it did
bool TogliSabatoARitroso(OpzioniTermine& Opzioni);

/// Boxes of the terms that a check may refuse.
enum class CampoTermine { Decorrenza, Numero };

/// The first box that lacks something: start date empty or none, number empty or 0.
[[nodiscard]] std::optional<Mancanza<CampoTermine>> DifettoTermine(const DatiTermine& Dati);

/// Caption of the result: "La scadenza è " and the date in words; "\n(Posticipata)" or "\n(Anticipata)" when
/// it was moved.
[[nodiscard]] QString TestoTermine(const ContoTermine& Conto);
