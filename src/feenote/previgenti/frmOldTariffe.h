// Which bracket of the older tariff the value of the case lies in. Modal over its fee-note window, which is
// disabled as long as it is up.
//
// The present tariff asks for no such bracket: the dialog stands for rights of the older one, and whoever
// opens it fills its list.
#pragma once

#include <QDialog>

#include <memory>

class frmParcelle;

namespace Ui {
class frmOldTariffe;
}

class frmOldTariffe : public QDialog
{
    Q_OBJECT

public:
    /// What the bracket is wanted for; each has its explanation.
    enum Motivo { PerApplicare, PerRicalcolare };

    frmOldTariffe(frmParcelle* Finestra, Motivo Perche);
    ~frmOldTariffe() override;

    /// @param NumSca what is stored when the entry is confirmed, above 0
    void AggiungiScaglione(const QString& DesVal, int NumSca);
    /// Shows the dialog and disables the fee-note window.
    void Apri();

    /// Every end of the dialog: without a bracket the user is told, and the fee-note window is enabled again.
    void done(int Esito) override;

private:
    void cmdConferma_Click();

    std::unique_ptr<Ui::frmOldTariffe> ui;
    frmParcelle* Parcella;
};
