// What the windows of the two calculators of terms share: the date and its calendar, the panel of the result,
// the notices.
#pragma once

#include "calculators/norme/terminecontato.h"
#include "calculators/windows/comandicalcolo.h"

#include <QDate>
#include <QList>
#include <QString>

#include <functional>

class CalendarioMensile;
class MascheraData;
class QAbstractButton;
class QCheckBox;
class QComboBox;
class QDialog;
class QFormLayout;
class QLabel;
class QPushButton;
class SceltaNorme;

/// The controls that both windows have.
struct CampiTermini
{
    MascheraData* mskDecorr;
    QCheckBox* chkSosp;
    QCheckBox* chkSabato;
    CalendarioMensile* Calendario;
    QLabel* lblRisult;
    QLabel* lblSettembre;  ///< the line under the result
    QAbstractButton* cmdCopia;
    const SceltaNorme* Norme;  ///< the rules that count
};

/// The larger letters of a result, and the picture of its copy button. `Ingrandimento` is the factor on the
/// form's own letters; there is room for `Righe` lines and for the line under them from the start, so that
/// nothing moves when they come.
void PreparaPannello(const CampiTermini& Campi, double Ingrandimento, int Righe);

/// Wires date, Saturday and calendar. At each change of the date `Pulisci` takes the result away, and the
/// Saturday is enabled by a date that is written whole; when the box is left, by one with a two-digit year
/// too, whose text stays as it was typed. The calendar follows the date.
void CollegaDecorrenza(const CampiTermini& Campi, const std::function<void()>& Pulisci);

/// A date picked on the calendar goes into the box, which gets the focus.
void PrendiData(const CampiTermini& Campi, const QDate& Data, const std::function<void()>& Pulisci);

/// Shows the calendar or hides it; the focus goes to the date.
void AlternaCalendario(const CampiTermini& Campi);

/// Marks the start date and the due dates on the calendar.
void SegnaGiorni(const CampiTermini& Campi, const QList<QDate>& Scadenze);

/// Shows a result, or takes it away with an empty text, and lets it be copied as long as there is one; a
/// screen reader speaks it. `Avviso` is the line under it; empty: none.
void ScriviRisultato(const CampiTermini& Campi, const QString& Testo, const QString& Avviso = {});

/// Enables the Saturday by a text of the date box: the program's own rules know no such term before
/// 02/03/2006, those in force look at the day on which it ends.
void AbilitaSabato(const CampiTermini& Campi, const QString& Testo);

/// The line on view under the result, empty when there is none.
[[nodiscard]] QString AvvisoMostrato(const CampiTermini& Campi);

/// A hidden widget keeps its room, so that nothing moves when it comes.
void NonSpostare(QWidget* Oggetto);

/// The focus on a date with nothing selected: the next date is typed over it, and Ctrl+C means the result.
void VaiSullaData(MascheraData* Data);

/// Runs a calculation, whose failure is reported, and goes back to the date it counts from: ready for the
/// next one when it succeeded, given back as it stands when it did not.
void CalcolaDallaData(MascheraData* Data, const std::function<bool()>& Calcola);

/// Whether there is a viewer for the notices on terms.
[[nodiscard]] bool HaAvvertenze();
void ApriAvvertenze(const QString& Titolo);

/// What both windows have beside the choice of the norms.
struct CampiNorme
{
    QComboBox* cmbMateria;
    QLabel* lblEta;
    QPushButton* cmdStrada;
    QPushButton* cmdAgenda;
};

/// Shows what belongs to the norms that count: the matters that the suspension spares, and how far they are
/// known.
void MostraNorme(const CampiNorme& Campi, SceltaNorme& Scelta);

/// The code of the chosen matter; empty for none, and by the program's own rules.
[[nodiscard]] QString MateriaScelta(const CampiNorme& Campi, const SceltaNorme& Scelta);

/// The day on which the proceeding began, in a row of its own that shows only where a term asks for it.
class RigaInizio
{
public:
    /// Puts the row into a form. `Cambiato` runs at each edit.
    RigaInizio(QFormLayout* Modulo, int Riga, const std::function<void()>& Cambiato);
    ~RigaInizio() = default;
    RigaInizio(const RigaInizio&) = delete;
    RigaInizio& operator=(const RigaInizio&) = delete;

    /// A hidden row keeps no day.
    void Mostra(bool Serve);
    void Svuota();
    /// False for a text that is no date, which a message says before the box gets the focus.
    [[nodiscard]] bool Valida() const;
    /// None while it is hidden, empty or no date.
    [[nodiscard]] std::optional<QDate> Data() const;
    [[nodiscard]] MascheraData* Casella() const { return mskInizio; }

private:
    QLabel* lblInizio;
    MascheraData* mskInizio;
};

/// Whether a row of the catalogue, or one of a chain, is valid by the day on which the proceeding began.
[[nodiscard]] bool ChiedeInizio(const TermineRicorrente& Termine);
[[nodiscard]] bool ChiedeInizio(const Norme& Insieme, const CatenaTermini& Catena);

/// The notes of all terms, each once, one a line.
[[nodiscard]] QString NoteDi(const QList<TermineContato>& Termini);

/// A line for each term: "Appello (art. 325 c.p.c.): Lunedì, 5 Ottobre 2026 (Posticipata)", or where there is
/// little room "lun 05/10/2026: Appello (art. 325 c.p.c.) (Posticipata)".
[[nodiscard]] QString TestoCatena(const QList<TermineContato>& Termini, bool Breve = false);

/// The result in a line: the date in words, of a chain the days of all its terms. Empty for none.
[[nodiscard]] QString EsitoInRiga(const QList<TermineContato>& Termini);

/// The start date as it is remembered: what takes it up enables the Saturday by it, as typing it does.
[[nodiscard]] CampoRicordato CampoDecorrenza(const CampiTermini& Campi);

/// The list of matters as it is remembered: none chosen is the ordinary one.
[[nodiscard]] CampoRicordato CampoMateria(QComboBox* cmbMateria);

/// How far the norms are known, for a sheet; empty by the program's own.
[[nodiscard]] QStringList RigheEta(SceltaNorme& Scelta);

[[nodiscard]] QList<ParteStrada> PartiDi(const QList<TermineContato>& Termini);

/// A list of long entries takes the room of so many letters and no more.
void LimitaLista(QComboBox* Lista, int Lettere);

/// Ctrl and a letter in the window.
void TastoRapido(QDialog* Modulo, Qt::Key Lettera, const std::function<void()>& Procedura);
