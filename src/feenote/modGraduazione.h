// Graduating honoraria between minimum and maximum: what the modification panel shows and does.
#pragma once

#include "feenote/modRighe.h"

#include <QString>
#include <QStringList>

#include <array>

/// The three working amounts of the panel, in the order of its rows.
enum Fascia { FasciaMin = 0, FasciaMedio = 1, FasciaMax = 2, NumFasce = 3 };
constexpr int NessunaFascia = -1;

/// Positions of sldGraduaOno.
constexpr int GraduaMin = 0;
constexpr int GraduaMeta = 50;
constexpr int GraduaMax = 100;

/// Row code of CaricaModOno for all lines together.
constexpr int TutteLeRighe = -1;

/// What the panel pctInsModOno shows.
struct Graduazione
{
    bool Aperto = false;
    bool Tutti = false;  ///< optModAll: all lines, else the one shown
    int Decimali = 0;    ///< of the amounts that the slider gives: those of the note's decree
    int Riga = -1;       ///< the line shown last
    std::array<double, NumFasce> Fasce{};
    QString OnoDesc;                  ///< lblOnoDesc
    QString Imp;                      ///< lblImp
    QString ImpOno;                   ///< lblImpOno
    QStringList RigheFasce;           ///< rows of tdbFasceOno
    int Evidenziata = NessunaFascia;  ///< highlighted row of tdbFasceOno
    int Gradua = GraduaMin;           ///< sldGraduaOno, 0 to 100
    bool Confermabile = false;        ///< cmdModOno is enabled: the user has chosen
};

/// Opens the panel on the current line, as the button "variaz" does. A line of the free item is told and
/// opens nothing, a line without a medium amount opens nothing.
void ApriModOno(Graduazione& Pannello, const TabellaRighe& Righe, std::optional<int> Corrente);

/// Closes it; the next opening is for one line.
void ChiudiModOno(Graduazione& Pannello);

/// Fills the panel from a line, or from the sums of all lines when `Riga` is TutteLeRighe, and opens it.
/// @throws Errore 9 when the row does not exist
void CaricaModOno(Graduazione& Pannello, const TabellaRighe& Righe, int Riga);

/// "Modifica: tutti" or "solo selezionato:" was chosen. The one that stands already changes nothing.
void ScegliModAll(Graduazione& Pannello, const TabellaRighe& Righe, bool Tutti);

/// Another line is current: an open panel shows it, if it is one of the tariff (number 1 to 899).
void SeguiRigaModOno(Graduazione& Pannello, const TabellaRighe& Righe, std::optional<int> Corrente);

/// A cell of a line was written: an open panel shows what it holds now.
void RicaricaModOno(Graduazione& Pannello, const TabellaRighe& Righe);

/// Lines came, went or moved: an open panel goes over to the current line, or closes if that is none of the
/// tariff.
void RinfrescaModOno(Graduazione& Pannello, const TabellaRighe& Righe, std::optional<int> Corrente);

/// Shows which of the three amounts equals the given one: its row, and the slider at 0, 50 or 100. With none
/// no row is highlighted, and the slider stays.
void CheckFascia(Graduazione& Pannello, const QString& Importo);

/// A row of tdbFasceOno was clicked.
void ScegliFascia(Graduazione& Pannello, int Riga);

/// The user moved the slider.
void SpostaGradua(Graduazione& Pannello, int Posizione);

/// What the slider does not show of the amount beside it: that it lies beyond the maximum or below the
/// minimum, or that it stands elsewhere between them. Empty while the slider stands on it, and for all lines.
[[nodiscard]] QString AvvisoGradua(const Graduazione& Pannello);

/// Where a step of the slider by keys ends: the position asked for, or the first one beyond it that leads on.
/// Amounts are rounded and each of the three has its own position, so that a plain step may change
/// nothing, or lead back to where it came from.
[[nodiscard]] int PassoGradua(const Graduazione& Pannello, int Da, int A);

/// cmdModOno: writes the amounts and closes the panel. All lines take their own column of the highlighted
/// row. In whole euro one line takes the slider's amount whatever row is highlighted, so that "MEDIO" is the
/// mid-point; under a decree with decimals it takes its column, as all lines do.
/// @return false, after telling the user, when there is no amount
bool ConfermaModOno(Graduazione& Pannello, TabellaRighe& Righe);
