// The court filing fee: a page of every kind of proceeding, with five values that a table turns into a fee.
#pragma once

#include "calculators/modContributo.h"
#include "calculators/modScheda.h"
#include "calculators/windows/sceltanorme.h"
#include "core/spesedilegge.h"

#include <QDialog>

#include <memory>

class ComandiCalcolo;
class PannelloContributo;
class PortaNota;
class QCheckBox;
class QWindow;

namespace Ui {
class frmContrib;
}

struct ParteDelCalcolo;

class frmContrib : public QDialog
{
    Q_OBJECT

public:
    frmContrib();
    ~frmContrib() override;

    void Mostra();

    /// Leaving a value: its text takes its shape, and all five fees are computed anew.
    void txtValore_LostFocus(int Indice);
    void mnuNew_Click();
    /// Any movement of the bar shows the upper or the lower half of the page.
    void VScroll1_Change();

protected:
    bool event(QEvent* Evento) override;
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void Collegamenti();
    void CambiaNorme();
    // ---- frmContrib_Porta.cpp: the fees go into a note
    void CollegaPorte();
    [[nodiscard]] QList<SpesaDiLegge> SpeseDi(int Indice) const;
    void ImpostaMisura();
    void ScorriA(int Alto);
    void Scorri(int Passo);
    void FaiVedere(const QWidget* Campo);
    void SegnaPosto();
    void MostraContributi();
    void RicordaCalcolati();
    void AbilitaCopia(int Indice);
    [[nodiscard]] int AltoInFondo() const;
    [[nodiscard]] static int AltoInCima();
    [[nodiscard]] QString TestoCopia() const;
    [[nodiscard]] ParteDelCalcolo ParteComandi();
    [[nodiscard]] SchedaCalcolo Scheda() const;
    [[nodiscard]] TestiContributo Valori() const;
    [[nodiscard]] TestiContributo ContributiChiesti() const;
    void Svuota();

    std::unique_ptr<Ui::frmContrib> ui;
    std::unique_ptr<SceltaNorme> Scelta;
    ComandiCalcolo* Comandi = nullptr;
    PannelloContributo* fraContrib;
    PortaNota* Porte = nullptr;
    QCheckBox* chkAnticipazione = nullptr;
    TestiContributo Contributi;
    TestiContributo Calcolati;  ///< the values that they were found from
    int UltimoScorrimento = 0;  ///< the bar at its last change, or where the page moved it to
    bool DaAltraFinestra =
        true;  ///< another window of the program was in front, no message and no other program
};
