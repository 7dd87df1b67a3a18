// Sequential terms: the deadlines that run one after another from a hearing.
//
// By the program's own rules counted in days, forward, never free: the form has no controls for these. By the
// norms in force the chains are those of the catalogue, each link with its own count.
#pragma once

#include "calculators/modTerminiSeq.h"
#include "calculators/norme/terminecontato.h"
#include "calculators/windows/comandicalcolo.h"

#include <QDialog>

#include <memory>

class PannelloTermini;
struct ParteTermini;

namespace Ui {
class frmTerminiSeq;
}

class frmTerminiSeq : public QDialog
{
    Q_OBJECT

public:
    frmTerminiSeq();
    ~frmTerminiSeq() override;

    void Mostra();

    /// Calculates the chain, or says what is missing. A failure is reported and leaves the result as it was.
    /// Every way out ends on the date.
    void cmdEsegui_Click();
    void mnuNew_Click();
    /// Prints the result; without one says so.
    void mnuPrint_Click();
    void cmdAvvertenze_Click();
    /// Shows or hides the calendar.
    void cmdCalend_Click();
    /// Takes the result away.
    void Pulisci();

protected:
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void Collegamenti();
    [[nodiscard]] bool Calcola();
    void ElencaArticoli();
    [[nodiscard]] bool CalcolaVigente();
    void MostraScadenze(const QList<ScadenzaAnello>& Calcolate);
    void MostraRisultato(const QList<TermineContato>& Calcolati, const QString& Testo, const QString& Avviso);
    void CambiaNorme();
    void CambiaCatena();
    [[nodiscard]] const CatenaTermini* Catena() const;
    [[nodiscard]] QString EventoMostrato() const;
    [[nodiscard]] QList<TermineContato> DelProgramma() const;
    [[nodiscard]] QStringList RigheChieste() const;
    void Svuota(bool Sospensione);
    [[nodiscard]] ParteDelCalcolo ParteComandi();
    [[nodiscard]] OpzioniTermine Opzioni() const;
    [[nodiscard]] ParteTermini ParteSua();

    std::unique_ptr<Ui::frmTerminiSeq> ui;
    PannelloTermini* Pannello;
    QString Risultato;  ///< its caption, by the program's own rules with the CR LF of its sheet
};
