// The settings of the program.
#pragma once

#include <QDialog>

#include <memory>

class QLineEdit;

namespace Ui {
class frmSetup;
}

class frmSetup : public QDialog
{
    Q_OBJECT

public:
    /// Tabs of tabSetup; those that the form does not have yet are out of its range.
    enum Scheda { SchedaDatiStudio = 0, SchedaDatiContabili = 1, SchedaSetup = 2, SchedaDesktop = 3 };

    frmSetup();
    ~frmSetup() override;

    /// Shows the form on a tab, filled from the settings store unless it is open already.
    void Mostra(int Indice);
    /// The same, holding all other windows back until it is closed.
    void MostraModale(int Indice);

    /// Selects a tab; an index outside the range changes nothing.
    void ChangeTab(int Indice);

    /// Reads the settings store, not the session, into the fields.
    void LoadValori();
    /// Tells the first field that must not be empty and is, and gives it the focus. @return false then
    [[nodiscard]] bool CheckValori();

    void cmdSaveImpost_Click();

private:
    void Prepara(int Indice);
    void SalvaValori() const;

    std::unique_ptr<Ui::frmSetup> ui;
};
