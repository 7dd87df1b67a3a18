// Due dates for the calendar of the office: which of them, for which matter, by what way.
#pragma once

#include "calculators/norme/terminecontato.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmAgenda;
}

class frmAgenda : public QDialog
{
    Q_OBJECT

public:
    frmAgenda(QWidget* Padre, const QList<TermineContato>& Scadenze, InsiemeNorme Norme);
    ~frmAgenda() override;

    void Mostra();

    /// Hands the ticked terms to the system's own calendar.
    void cmdApri_Click();
    /// Writes them where the user says.
    void cmdSalva_Click();

private:
    void Collegamenti();
    void Abilita();
    [[nodiscard]] QList<VoceAgenda> Scelte() const;

    std::unique_ptr<Ui::frmAgenda> ui;
    QList<TermineContato> Termini;
    InsiemeNorme Insieme;
};
