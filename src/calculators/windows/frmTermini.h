// Procedural terms: the due date of so many days, months or years from a start date, forward or backward.
#pragma once

#include "calculators/modTermini.h"
#include "calculators/windows/finestretermini.h"

#include <QDialog>

#include <memory>

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

private:
    void Collegamenti();
    void Form_Activate();
    [[nodiscard]] bool Calcola();
    void MostraScadenza(const ContoTermine& Conto);
    void Segna();
    [[nodiscard]] DatiTermine Dati() const;
    [[nodiscard]] CampiTermini Campi() const;

    std::unique_ptr<Ui::frmTermini> ui;
    QDate DataCorrente;  ///< the due date of the result
};
