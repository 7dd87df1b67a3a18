// The settings' page of the tariff, of rates and of the invoice counter.
#pragma once

#include "core/settings/valorischeda.h"

#include <QWidget>

#include <memory>

class QLineEdit;

namespace Ui {
class SchedaContabili;
}

class SchedaContabili : public QWidget
{
    Q_OBJECT

public:
    explicit SchedaContabili(QWidget* Padre);
    ~SchedaContabili() override;

    /// Fills the boxes from the settings store.
    void Carica();
    /// What is to be stored. The tariff is among it once there is a choice: one was stored, picked in the
    /// list, or confirmed as it stands. The counter is always among it.
    [[nodiscard]] ValoriScheda Valori() const;
    /// Whoever saves with this page in view has seen which tariff it says, and has chosen it.
    void ScegliTariffaInVista() { TariffaScelta = true; }
    /// The box of the last invoice's number.
    [[nodiscard]] QLineEdit* CasellaNumero() const;
    /// The same when it holds no number of an invoice; null when it does.
    [[nodiscard]] QLineEdit* NumeroSbagliato() const;

private:
    void cmdVigenti_Click();
    bool LasciaNumero();
    /// Says beside each empty rate which one counts.
    void SegnaVuote();

    std::unique_ptr<Ui::SchedaContabili> ui;
    bool TariffaScelta = false;
};
