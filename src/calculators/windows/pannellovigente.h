// The filing fee in force on the day of filing, beside the page of the program's own: what is asked, the
// amount, and the norm of each step to it.
#pragma once

#include "calculators/modScheda.h"
#include "calculators/norme/contributovigente.h"
#include "calculators/norme/etadati.h"
#include "platform/base/tabellarighe.h"

#include <QWidget>

#include <functional>
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
    /// What "In tutto" counts beside them, behind a semicolon; empty: nothing.
    [[nodiscard]] QString FuoriDalleSpese() const;
    /// Behind the amount and its button, for Tab too.
    void AggiungiAccanto(QWidget* Cosa);

    /// What was asked, in a few words: the proceeding and the value.
    [[nodiscard]] QString Chiesto() const;
    /// The calculation as a part of a sheet; without rows while there is none.
    [[nodiscard]] SezioneScheda Sezione() const;
    /// How far the norms are known.
    [[nodiscard]] QStringList EtaNote() const;
    /// The boxes in the order in which they are put back.
    [[nodiscard]] QList<QWidget*> Campi() const;

    /// The value was left, by whoever typed it.
    std::function<void()> ValoreLasciato;

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
    [[nodiscard]] QList<QStringList> RigheCopia() const;

    std::unique_ptr<Ui::PannelloVigente> ui;
    std::shared_ptr<const Norme> Insieme;
    QList<ProcedimentoContributo> Procedimenti;
    QList<PassoContributo> Passi;
    EsitoContributo Ultimo;
    TabellaRighe Righe;
};
