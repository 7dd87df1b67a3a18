// The panel that the windows of the two calculators of terms have in common: date and calendar, the norms
// that count, the result with its road, calendar entries, sheet and commands.
#pragma once

#include "calculators/norme/terminecontato.h"
#include "calculators/windows/comandicalcolo.h"
#include "calculators/windows/finestretermini.h"
#include "calculators/windows/sceltanorme.h"

#include <QObject>
#include <QPointer>

#include <functional>

class CalendarioMensile;
class QAbstractButton;
class QCheckBox;
class QPushButton;
class frmStrada;

/// The controls that both windows have. The window owns them.
struct CampiTermini
{
    QComboBox* cmbNorme;
    QComboBox* cmbMateria;
    QLabel* lblEta;
    MascheraData* mskDecorr;
    QCheckBox* chkSosp;
    QCheckBox* chkSabato;
    CalendarioMensile* Calendario;
    QLabel* lblRisult;
    QLabel* lblSettembre;  ///< the line under the result
    QAbstractButton* cmdCopia;
    QPushButton* cmdStrada;
    QPushButton* cmdAgenda;
    QWidget* cmdScadenza = nullptr;  ///< opens the calendar of the result, where the window has one
};

/// Fills CampiTermini from a form whose controls bear the same names. cmdScadenza stays empty: only one
/// window has that button.
template <class Modulo>
[[nodiscard]] CampiTermini CampiDi(const Modulo& Suo)
{
    return {.cmbNorme = Suo.cmbNorme,
            .cmbMateria = Suo.cmbMateria,
            .lblEta = Suo.lblEta,
            .mskDecorr = Suo.mskDecorr,
            .chkSosp = Suo.chkSosp,
            .chkSabato = Suo.chkSabato,
            .Calendario = Suo.Calendario,
            .lblRisult = Suo.lblRisult,
            .lblSettembre = Suo.lblSettembre,
            .cmdCopia = Suo.cmdCopia,
            .cmdStrada = Suo.cmdStrada,
            .cmdAgenda = Suo.cmdAgenda};
}

/// What differs between the two.
struct ParteTermini
{
    QString Suffisso;                     ///< of the print window's caption, ": calcolo termini"
    QString TitoloScheda;                 ///< empty: the one that every road has
    std::function<void()> NormeCambiate;  ///< another set of norms counts
    std::function<void()> Pulisci;        ///< the result does not hold any more
    std::function<QStringList()>
        Chieste;  ///< the first lines of the sheet: what was asked, without the norms
};

/// It goes behind the controls of its window, whose last events it still answers.
class PannelloTermini : public QObject
{
public:
    /// @param Modulo the form that gets the row of the proceeding's start, as its row `Riga`
    PannelloTermini(QDialog* Padre, const CampiTermini& Suoi, QFormLayout* Modulo, int Riga,
                    ParteTermini Della);

    /// The entries of the window's menu. The result, its sheet and the suffix are the panel's own.
    [[nodiscard]] QList<VoceMenu> Comandi(ParteDelCalcolo Parte);
    /// The larger letters of a result, and the pictures. `Ingrandimento` is the factor on the form's own
    /// letters; there is room for `Righe` lines and for the line under them from the start, so that nothing
    /// moves when they come.
    void Prepara(double Ingrandimento, int Righe);
    /// Wires date, Saturday, calendar, matter and buttons. `Cambiato` runs at each change of the date; the
    /// Saturday is enabled by a date that is written whole, and when the box is left by one with a two-digit
    /// year too, whose text stays as it was typed. The calendar follows the date.
    void Collegamenti(const std::function<void()>& Cambiato);
    /// The norms that the settings name.
    void Comincia() { Scelta.Comincia(); }

    /// Runs a calculation, whose failure is reported, unless the day of the proceeding is no date. Goes back
    /// to the date it counts from: ready for the next one when it succeeded, given back as it stands when it
    /// did not.
    void Calcola(const std::function<bool()>& Procedura);
    /// Shows a result, and lets it be copied; a screen reader speaks it. `Avviso` is the line under it,
    /// empty: none.
    void Mostra(const QList<TermineContato>& Calcolati, const QString& Testo, const QString& Avviso);
    /// Takes the result away, with its road.
    void Togli();
    /// Shows the calendar or hides it; the focus goes to the date.
    void AlternaCalendario();
    /// Enables the Saturday by the date: the program's own rules know no such term before 02/03/2006, those
    /// in force look at the day on which it ends.
    void AbilitaSabato();

    /// The terms on view; none without a result.
    [[nodiscard]] const QList<TermineContato>& Contati() const { return Termini; }
    [[nodiscard]] SceltaNorme& Norme() { return Scelta; }
    [[nodiscard]] const SceltaNorme& Norme() const { return Scelta; }
    [[nodiscard]] RigaInizio& Inizio() { return DataInizio; }
    [[nodiscard]] const RigaInizio& Inizio() const { return DataInizio; }
    /// The start date as it is typed, where the places of a two-digit year's century are empty without them.
    [[nodiscard]] QString Decorrenza() const;
    /// The code of the chosen matter; empty for none, and by the program's own rules.
    [[nodiscard]] QString Materia() const;
    /// The line on view under the result, empty when there is none.
    [[nodiscard]] QString AvvisoMostrato() const;
    [[nodiscard]] SchedaCalcolo Scheda();

    /// The start date as it is remembered: what takes it up enables the Saturday by it, as typing it does.
    [[nodiscard]] CampoRicordato CampoDecorrenza();
    /// The list of matters as it is remembered: none chosen is the ordinary one.
    [[nodiscard]] CampoRicordato CampoMateria() const;

private:
    void MostraNorme();
    void ApriStrada();
    void ApriAgenda();
    void Segui(const QString& Testo);
    void AbilitaSabato(const QString& Testo);
    void Scrivi(const QString& Testo, const QString& Avviso);
    void Abilita();
    void SegnaGiorni();

    QDialog* Finestra;
    CampiTermini Campi;
    ParteTermini Parte;
    SceltaNorme Scelta;
    RigaInizio DataInizio;
    ComandiCalcolo* ComandiSuoi = nullptr;
    QList<TermineContato> Termini;
    QPointer<frmStrada> Strade;
};
