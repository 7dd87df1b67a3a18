// Procedural terms: the due date of so many days, months or years from a start date, forward or backward.
#pragma once

#include "calculators/modTermini.h"
#include "calculators/norme/terminecontato.h"
#include "calculators/windows/comandicalcolo.h"

#include <QDialog>

#include <memory>

class PannelloTermini;
struct CampiTermini;
struct ParteTermini;

namespace Ui {
class frmTermini;
}

class frmTermini : public QDialog
{
    Q_OBJECT

public:
    frmTermini();
    ~frmTermini() override;

    /// Shows the form; a new showing begins with Form_Activate.
    void Mostra();

    /// Calculates, or says what is missing. A failure is reported and leaves the result as it was. Every way
    /// out ends on the start date.
    void cmdEsegui_Click();
    /// Empties the fields. The unit is left with no selection, which counts in years.
    void mnuNew_Click();
    /// Prints the result; without one says so.
    void mnuStampa_Click();
    void cmdAvvertenze_Click();
    /// Shows or hides the calendar; index 1 sets it to the due date too.
    void cmdCalend_Click(int Indice);
    /// Takes the result away.
    void Pulisci();

    /// Opens the catalogue of recurring terms; the one that is picked fills the boxes.
    void cmdRicorrenti_Click();
    /// Fills the boxes with a term of the catalogue, and calculates where there is a start date.
    void UsaTermine(const TermineRicorrente& Termine);
    /// The same with a chain, which has its own counts: the boxes rest until it is left.
    void UsaCatena(const CatenaTermini& Catena);
    /// Leaves the term or the chain of the catalogue.
    void cmdLascia_Click();

private:
    void Collegamenti();
    void Form_Activate();
    void CollegaRicorrenti();
    [[nodiscard]] bool Calcola();
    [[nodiscard]] bool CalcolaCatena(const DatiTermine& Caselle);
    void MostraRisultato(const QList<TermineContato>& Calcolati, const QString& Testo);
    void CambiaNorme();
    void CalcolaSeData();
    void SpuntaSabato(const OpzioniTermine& DelTermine);
    void VerificaScelto();
    void MostraScelto();
    [[nodiscard]] TermineContato Contato(const RichiestaTermine& Richiesta, const EsitoTermine& Esito) const;
    [[nodiscard]] RichiestaTermine Richiesta(const DatiTermine& Caselle) const;
    [[nodiscard]] EsitoTermine Computa(const RichiestaTermine& Chiesto) const;
    [[nodiscard]] DatiTermine Dati() const;
    [[nodiscard]] CampiTermini Campi() const;
    [[nodiscard]] ParteTermini ParteSua();
    [[nodiscard]] QStringList RigheChieste() const;
    void MettiTermine(const TermineRicorrente& Termine);
    void MettiCatena(const CatenaTermini& Presa);
    void Svuota();
    [[nodiscard]] ParteDelCalcolo ParteComandi();
    [[nodiscard]] CampoRicordato CampoCatalogo();

    std::unique_ptr<Ui::frmTermini> ui;
    PannelloTermini* Pannello;
    std::optional<TermineRicorrente> Scelto;  ///< from the catalogue, as long as the boxes are its own
    std::optional<CatenaTermini> Catena;      ///< from the catalogue
};
