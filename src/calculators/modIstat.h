// Revaluation of an amount between two months with the consumer price indices FOI of the statistics
// institute.
//
// Coefficient = index of the final month x linking coefficient between the two bases / index of the initial
// month. All roundings here are to nearest with ties to even.
#pragma once

#include "core/mancanza.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringView>

#include <array>
#include <optional>

/// Entries of cmbValuta on this form.
inline constexpr std::array<QStringView, 2> VociValutaIstat{u" €", u" £"};

/// The boxes of the form.
struct DatiIstat
{
    QString DataIni;  ///< mskDataIni
    QString DataFin;  ///< mskDataFin
    QString Importo;  ///< txtImporto
    int Valuta = 0;   ///< position of cmbValuta: 0 euro, 1 lire
};

/// Boxes of the revaluation that a check may refuse.
enum class CampoIstat { DataIni, DataFin, Importo };

/// The first test that fails.
[[nodiscard]] std::optional<Mancanza<CampoIstat>> CheckIstat(const DatiIstat& Dati);

/// The captions of the eight result labels; amounts end in two blanks, the indices have the month on a second
/// line.
struct RisultatiIstat
{
    QString lblImporto;
    QString lblIndFin;
    QString lblCoeffRacc;
    QString lblIndIni;
    QString lblCoeffRiv;
    QString lblImpRival;
    QString lblRivalutaz;
    QString lblVarPerc;

    friend bool operator==(const RisultatiIstat&, const RisultatiIstat&) = default;
};

enum class FineIstat {
    Completa,    ///< all captions are written
    Interrotta,  ///< something is missing and no update is wanted; captions written so far stay
    Aggiorna,    ///< the user wants the update: the form opens it
};

/// The calculation of checked boxes. It asks and tells through the message seam.
///
/// @param Archivio full path of Tassi.dat
/// @param AggiornamentoChiesto true once the user has said yes to the question on the last index; the form
/// keeps it
/// @param Etichette captions, written one after another; they were emptied when a box changed
/// @throws Errore 13 an amount that is no number, 11 an initial index of 0; those of OpenDatabase and
/// Recordset
[[nodiscard]] FineIstat CalcolaRivalutazione(const QString& Archivio, const DatiIstat& Dati,
                                             bool& AggiornamentoChiesto, RisultatiIstat& Etichette);

/// The amounts, each from the text of the captions already written: on entry the two indices are there as
/// plain numbers.
/// @param Importo euro, not rounded
/// @throws Errore 11 when the initial index is 0, 5 beyond a double
void ScriviRisultati(RisultatiIstat& Etichette, double Importo, double Coefficiente);

/// An index for a drawing.
struct PuntoIndice
{
    int Anno = 0;
    int Mese = 0;
    double Valore = 0.0;  ///< carried to the base of the first point
};
/// The indices of the months between two dates, both included, as far as the archive goes, all on one base.
/// @throws Errore those of OpenDatabase and Recordset
[[nodiscard]] QList<PuntoIndice> SerieIndici(const QString& Archivio, const QDate& Da, const QDate& A);
