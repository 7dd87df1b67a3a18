// The settings' page of the electronic invoice: the office's kind, regime and seat, the counter of files.
#pragma once

#include "core/schedeimpostazioni.h"
#include "core/settings/valorischeda.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

class QLineEdit;

namespace Ui {
class SchedaFattura;
}

class SchedaFattura : public QWidget
{
    Q_OBJECT

public:
    explicit SchedaFattura(QWidget* Padre);
    ~SchedaFattura() override;

    /// Fills the page from the settings store.
    void Carica();
    /// A box of this page to which another window leads; null for one of another.
    [[nodiscard]] QWidget* Casella(impostazioni::CasellaStudio Quale) const;
    /// What is to be stored, the counter always among it.
    [[nodiscard]] ValoriScheda Valori() const;
    /// The box of the last file's number.
    [[nodiscard]] QLineEdit* CasellaNumero() const;
    /// The same when it holds no number of a file; null when it does.
    [[nodiscard]] QLineEdit* NumeroSbagliato() const;

    /// The stored number, when the box was edited and holds a lower one: names would be given twice.
    [[nodiscard]] std::optional<int> NumeroIndietro() const;

    /// Address and town of the office as its own page shows them: what a proposal is made of.
    std::function<std::pair<QString, QString>()> IndirizzoScritto;

private:
    void cmdRicava_Click();
    void MostraTipo();
    void MostraNome();
    void SegnaControlli();
    bool LasciaNumero();

    std::unique_ptr<Ui::SchedaFattura> ui;
    QString NumeroLetto;
};
