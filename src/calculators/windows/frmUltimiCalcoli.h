// The last calculations of a calculator: one of them is taken up again, renamed, taken out.
#pragma once

#include "calculators/ultimicalcoli.h"
#include "platform/base/tabellarighe.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmUltimiCalcoli;
}

class frmUltimiCalcoli : public QDialog
{
    Q_OBJECT

public:
    frmUltimiCalcoli(QWidget* Padre, Calcolatrice DiChi);
    ~frmUltimiCalcoli() override;

    /// What a pick does; the window is closed before.
    std::function<void(const CalcoloRicordato& Calcolo)> Scelto;

    void Mostra();
    void cmdRiprendi_Click();
    void cmdRinomina_Click();
    void cmdElimina_Click();
    void cmdSvuota_Click();

private:
    void Colonne();
    void Collegamenti();
    void Elenca();
    void Abilita();
    /// Null while the list is empty.
    [[nodiscard]] const CalcoloRicordato* Corrente() const;

    std::unique_ptr<Ui::frmUltimiCalcoli> ui;
    Calcolatrice Quale;
    QList<CalcoloRicordato> Calcoli;
    TabellaRighe Righe;
};
