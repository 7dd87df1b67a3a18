// Sequential terms: the deadlines that run one after another from a hearing.
//
// Counted in days, forward, never free: the form has no controls for these.
#pragma once

#include "calculators/modTerminiSeq.h"
#include "calculators/windows/finestretermini.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmTerminiSeq;
}

class frmTerminiSeq : public QDialog
{
    Q_OBJECT

public:
    frmTerminiSeq();
    ~frmTerminiSeq() override;

    void Mostra();

    /// Calculates the chain, or says what is missing. A failure is reported and leaves the result as it was.
    /// Every way out ends on the date.
    void cmdEsegui_Click();
    void mnuNew_Click();
    /// Prints the result; without one says so.
    void mnuPrint_Click();
    void cmdAvvertenze_Click();
    /// Shows or hides the calendar.
    void cmdCalend_Click();
    /// Takes the result away.
    void Pulisci();

protected:
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void Collegamenti();
    [[nodiscard]] bool Calcola();
    void MostraScadenze(const QList<ScadenzaAnello>& Calcolate);
    void Segna();
    [[nodiscard]] OpzioniTermine Opzioni() const;
    [[nodiscard]] CampiTermini Campi() const;

    std::unique_ptr<Ui::frmTerminiSeq> ui;
    QList<ScadenzaAnello> Scadenze;  ///< of the result
    QString Risultato;               ///< caption of the result with its CR LF, as it is printed
};
