// The last calculations of each calculator, so that yesterday's one is a key away.
//
// They stand in one small file among what the program keeps for this user alone, since they name clients:
// JSON, 0600, at most ten of each calculator. What is damaged in it is left out.
#pragma once

#include "calculators/calcolatrici.h"

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringView>

#include <array>
#include <optional>

/// A calculation as it is remembered.
struct CalcoloRicordato
{
    QString Nome;      ///< one line, made of the inputs or given by the user
    QString Esito;     ///< the result in a line
    QDateTime Quando;  ///< local time, to the second
    /// What the window had in its boxes, by their names.
    QMap<QString, QString> Campi;
    bool NomeDato = false;  ///< the name is the user's

    friend bool operator==(const CalcoloRicordato&, const CalcoloRicordato&) = default;
};

/// As many as are remembered of each calculator.
inline constexpr int MassimoCalcoli = 10;

/// All lists as they stand in a file, the last calculation first.
using ElencoCalcoli = std::array<QList<CalcoloRicordato>, TabellaCalcolatrici.size()>;

/// Reads the bytes of the file: whatever is no calculation in them is left out, and so is what is too long
/// and what comes beyond the tenth.
/// @return none when they are no such file at all
[[nodiscard]] std::optional<ElencoCalcoli> LeggiElenco(const QByteArray& Byte);
/// The same lists as bytes.
[[nodiscard]] QByteArray ScriviElenco(const ElencoCalcoli& Elenco);

/// Full path of the file; it need not be there.
[[nodiscard]] QString FileCalcoli();

/// Where a file that cannot be read is put aside, by its name beside the other one: somebody may have given
/// names in it, or a newer program have written it.
[[nodiscard]] QString FileCalcoliGuasto();
/// The sentence behind it.
[[nodiscard]] QString FraseElencoGuasto();

/// The list of a calculator. A damaged file is told once and put aside.
/// @throws Errore as LeggiFile and ScriviFile
[[nodiscard]] QList<CalcoloRicordato> UltimiCalcoli(Calcolatrice Quale);

/// Puts a calculation at the head of its list, unless the user wants none remembered. One with the same boxes
/// goes; a name that the user has given stays. Long texts are cut.
/// @param Sostituisce the boxes of one whose place it takes: the same calculation, carried on; empty: none
/// @throws Errore as above, 55 another program goes on writing the file
void RicordaCalcolo(Calcolatrice Quale, const CalcoloRicordato& Calcolo,
                    const QMap<QString, QString>& Sostituisce = {});

/// Gives one another name; nothing for an empty one and for one that is no more. It is known by its boxes.
/// @throws Errore as RicordaCalcolo
void RinominaCalcolo(Calcolatrice Quale, const QMap<QString, QString>& Campi, const QString& Nome);
/// Takes one out of its list. @throws Errore as RicordaCalcolo
void DimenticaCalcolo(Calcolatrice Quale, const QMap<QString, QString>& Campi);
/// Takes all of a calculator out, and what was put aside with them. @throws Errore as RicordaCalcolo, 75 what
/// was put aside stays
void SvuotaCalcoli(Calcolatrice Quale);

/// Whether calculations are remembered, for all calculators; what is in the lists stays.
/// @throws Errore 75 when the settings cannot be written
void ImpostaRicordo(bool Ricorda);
