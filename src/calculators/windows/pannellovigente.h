// The filing fee in force on the day of filing, beside the page of the program's own: what is asked, the
// amount, and the norm of each step to it.
#pragma once

#include "calculators/norme/contributovigente.h"
#include "calculators/norme/etadati.h"
#include "platform/base/tabellarighe.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace Ui {
class PannelloVigente;
}

class PannelloVigente : public QWidget
{
    Q_OBJECT

public:
    explicit PannelloVigente(QWidget* Padre = nullptr);
    ~PannelloVigente() override;

    /// The norms that it reckons by; today is the day of filing until the user types another one.
    void Imposta(std::shared_ptr<const Norme> DiLegge);
    void Svuota();
    /// The amount as one pastes it, empty while there is none.
    [[nodiscard]] QString Importo() const;
    /// The fee and the lump sum for notifications as expenses of the day of filing; none while there is no
    /// fee.
    [[nodiscard]] QList<SpesaDiLegge> Spese() const;
    /// Behind the amount and its button.
    void AggiungiAccanto(QWidget* Cosa);

Q_SIGNALS:
    void Calcolato();  ///< the amount may be another one

private:
    void Colonne();
    void Collegamenti();
    void CambiaProcedimento();
    void Calcola();
    void Mostra(const EsitoContributo& Esito);
    void MostraErrore(const QString& Frase);
    [[nodiscard]] const ProcedimentoContributo* Procedimento() const;
    /// What is asked; none while the date or the value lacks, whose sentence is shown.
    [[nodiscard]] std::optional<RichiestaContributo> Richiesta();
    [[nodiscard]] QString TestoCopia() const;

    std::unique_ptr<Ui::PannelloVigente> ui;
    std::shared_ptr<const Norme> Insieme;
    QList<ProcedimentoContributo> Procedimenti;
    QList<PassoContributo> Passi;
    EsitoContributo Ultimo;
    TabellaRighe Righe;
};
