// Simple interest on one capital between two dates, period by period, at the rates of the archive.
//
// Legal interest (art. 1284 c.c.) or default interest (art. 5 D.lgs. 231/2002). Both days of a period count,
// the divisor is 365 in every year, nothing is capitalised. Rates are percent a year in single precision.
#pragma once

#include "core/mancanza.h"
#include "platform/base/tabellarighe.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <optional>

// Entries of the lists, in their order.
inline constexpr std::array<QStringView, 2> VociInteressi{u"Legali, art. 1284 cc",
                                                          u"Di mora, art. 5 D.lgs. 231/02"};
inline constexpr std::array<QStringView, 2> VociValuta{u"Euro", u"Lire"};
constexpr int InteressiLegali = 0;
constexpr int InteressiMora = 1;
constexpr int ValutaEuro = 0;
constexpr int ValutaLire = 1;

/// Columns of the grid.
enum ColonnaInteressi {
    IntDal,
    IntAl,
    IntTasso,    ///< double, percent, rounded to 3 decimals
    IntGiorni,   ///< int
    IntImporto,  ///< double, euro
    ColonneInteressi
};

/// The boxes of the form.
struct DatiInteressi
{
    int Tipo = InteressiLegali;  ///< position of cmbInteressi
    QString Capitale;            ///< txtCapitale
    int Valuta = ValutaEuro;     ///< position of cmbValuta
    QString Aumento;             ///< txtAumento: points added to every rate; empty for none
    QString DataIni;             ///< mskDataIni
    QString DataFin;             ///< mskDataFin
    bool Dopo2012 = false;       ///< optDataFine(1): transaction concluded after 31/12/2012, one point more
};

/// Boxes of the interest that a check may refuse.
enum class CampoInteressi { Capitale, DataIni, DataFin };

/// The last test that fails. No test compares the two dates.
[[nodiscard]] std::optional<Mancanza<CampoInteressi>> CheckInteressi(const DatiInteressi& Dati);

/// Interest of one period: Capitale / 365 x Tasso x Giorni / 100 in this order, rounded to 2 decimals, ties
/// to even.
/// @param Giorni days, the first and the last included
/// @param Tasso percent a year
/// @throws Errore 6 beyond a double
[[nodiscard]] double Interessi(int Giorni, float Tasso, double Capitale);

/// How a calculation ends.
enum class FineInteressi {
    Completa,    ///< lines and total are to be shown
    Interrotta,  ///< a rate of 0: nothing is shown, the grid keeps what it had
    Aggiorna,    ///< the user wants the update: it is opened, nothing is shown
    Chiudi,      ///< no rate holds for the start date and no update is wanted: the form closes
    AggiornaEChiudi,
};

struct EsitoInteressi
{
    FineInteressi Fine = FineInteressi::Interrotta;
    TabellaRighe Righe{ColonneInteressi};
    double TotaleInteressi = 0.0;  ///< running total, euro
};

/// Decimals that the longest rate of the lines needs, 3 at most, so that their commas stand below each other.
[[nodiscard]] int DecimaliTassi(const TabellaRighe& Righe);
/// A cell of the lines as it is shown. @param Decimali of the rates
[[nodiscard]] QString CellaInteressi(int Colonna, const QVariant& Valore, int Decimali);
/// The cells of a line as they are shown.
[[nodiscard]] QStringList CelleInteressi(const TabellaRighe& Righe, int Riga, int Decimali);

/// The calculation of checked boxes. It asks and tells through the message seam; rows of the archive follow
/// one another in the order of the index, gaps are not looked for.
///
/// @param Archivio full path of Tassi.dat
/// @param UltimoAumento the last text of the increase that the user was warned of; the form keeps it
/// @throws Errore 6 a figure too large, 13 a capital or increase that is no number (when the first line is
/// written);
///         those of OpenDatabase and Recordset for the archive
[[nodiscard]] EsitoInteressi CalcolaInteressi(const QString& Archivio, const DatiInteressi& Dati,
                                              QString& UltimoAumento);
