// Revaluation of an amount between two dates, with every element of the calculation and a plot of the index.
#pragma once

#include "calculators/modIstat.h"
#include "calculators/modScheda.h"
#include "calculators/norme/etadati.h"

#include <QDialog>

#include <memory>

class ComandiCalcolo;
class MascheraData;
class QLabel;

namespace Ui {
class frmIstat;
}

struct ParteDelCalcolo;

class frmIstat : public QDialog
{
    Q_OBJECT

public:
    frmIstat();
    ~frmIstat() override;

    void Mostra();

    /// Says in the status bar how old the rate archive is; nothing where there is none.
    void MostraDataArchivio();
    /// Says under the results that they reach beyond the indices; nothing while they do not.
    void MostraOltre();

    /// Says which box is wrong, the first one, and gives it the focus. @return true when none is
    [[nodiscard]] bool Check();
    /// Empties the eight results and the plot.
    void PulisciCalcoli();

    void cmdCalcola_Click();
    void mnuNew_Click();
    void cmdCalend_Click(int Indice);

protected:
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void Misure();
    void Collegamenti();
    void Load();
    void MostraRisultati();
    void SeguiData(const MascheraData* Casella);
    [[nodiscard]] MascheraData* Casella(int Indice) const;
    [[nodiscard]] DatiIstat Dati() const;
    [[nodiscard]] QList<QStringList> RigheTutto() const;
    [[nodiscard]] ParteDelCalcolo ParteComandi();
    [[nodiscard]] SchedaCalcolo Scheda() const;

    std::unique_ptr<Ui::frmIstat> ui;
    QLabel* panArchivio;  ///< first panel of the status bar
    ComandiCalcolo* Comandi = nullptr;
    int IndiceCalendario = 0;           ///< the date that the calendar serves
    bool AggiornamentoChiesto = false;  ///< the user has said yes to the question on the last index
    RisultatiIstat Risultati;
    std::optional<CoperturaTassi> Copertura;  ///< none: no archive that can be read
};
