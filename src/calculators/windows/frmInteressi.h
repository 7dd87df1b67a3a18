// Simple interest on one capital between two dates, line by line at the rates in force.
#pragma once

#include "calculators/modInteressi.h"
#include "calculators/modScheda.h"
#include "calculators/norme/etadati.h"
#include "calculators/windows/sceltanorme.h"

#include <QDialog>

#include <memory>

class CalendarioMensile;
class ComandiCalcolo;
class QFrame;
class QLabel;

namespace Ui {
class frmInteressi;
}

struct ParteDelCalcolo;

class frmInteressi : public QDialog
{
    Q_OBJECT

public:
    frmInteressi();
    ~frmInteressi() override;

    void Mostra();

    /// Says in the status bar how old the rate archive is; nothing where there is none.
    void MostraDataArchivio();

    /// Says what is wrong with the boxes and gives the focus to the one it speaks of. @return true when
    /// nothing is
    [[nodiscard]] bool Check();
    /// Empties the lines, the footer and the result.
    void PulisciCalcoli();
    /// Shows what default interest asks for besides; 0 hides it.
    void VisDati(int Tipo);

    void cmdCalcola_Click();
    void mnuNew_Click();
    void cmdCalend_Click(int Indice);

protected:
    void keyPressEvent(QKeyEvent* Evento) override;

private:
    void Collegamenti();
    void CreaCalendario();
    void ColonneRiepilogo();
    void Load();
    void ProponiRegola();
    void MostraOltre();
    [[nodiscard]] std::optional<EtaDati> Eta() const;
    void MostraEsito(const EsitoInteressi& Esito);
    void Calendario_Scelta(const QDate& Data);
    [[nodiscard]] DatiInteressi Dati() const;
    [[nodiscard]] QString TestoCopia() const;
    [[nodiscard]] QString TestoTabella() const;
    [[nodiscard]] QList<QStringList> RigheTabella() const;
    [[nodiscard]] ParteDelCalcolo ParteComandi();
    [[nodiscard]] SchedaCalcolo Scheda() const;
    void AbilitaCopie();

    std::unique_ptr<Ui::frmInteressi> ui;
    QFrame* fraCalendario;  ///< what shows and hides the calendar
    CalendarioMensile* Calendario;
    QLabel* panArchivio;  ///< first panel of the status bar
    std::unique_ptr<SceltaNorme> Scelta;
    std::optional<CoperturaTassi> Copertura;  ///< none: no archive that can be read
    bool OpzioneScelta = false;               ///< the user has said when the transaction was concluded
    ComandiCalcolo* Comandi;
    int IndiceCalendario = 0;
    TabellaRighe Righe{ColonneInteressi};
    int DecimaliTasso = 0;  ///< as many as the longest rate of the lines needs
    QString UltimoAumento;  ///< the last increase of which the user was warned
};
