// The commands that all calculators have beside their own: the sheet, the copy as a table, the last
// calculations. The window says what it holds, the rest is the same for each.
#pragma once

#include "calculators/modScheda.h"
#include "calculators/ultimicalcoli.h"
#include "calculators/windows/finestracalcolo.h"

#include <QObject>

#include <functional>

/// A box of a window as it is remembered: its text, the entry of a list or its code, "1" for a tick.
struct CampoRicordato
{
    QString Nome;
    std::function<QString()> Leggi;
    /// False: the window has no such entry any more.
    std::function<bool(const QString& Valore)> Scrivi;
};

/// A date, a box, a list, a tick or an option by the name of its control.
[[nodiscard]] CampoRicordato CampoDi(QWidget* Controllo);

/// What a window gives to the commands.
struct ParteDelCalcolo
{
    Calcolatrice Quale = Calcolatrice::Termini;
    QList<CampoRicordato> Campi;     ///< in the order in which they are put back
    std::function<QString()> Nome;   ///< what the calculation is called, by its inputs
    std::function<QString()> Esito;  ///< the result in a line; empty: there is none
    std::function<SchedaCalcolo()> Scheda;
    QString Suffisso;               ///< of the print window's caption, ": calcolo interessi"
    std::function<void()> Prepara;  ///< empties the window before boxes are put back
    std::function<void()> Calcola;  ///< what the user does behind the last box
    /// The window computes as it is written in: what only adds to the last calculation takes its place.
    bool Continua = false;
};

class ComandiCalcolo : public QObject
{
public:
    ComandiCalcolo(QDialog* Finestra, ParteDelCalcolo Della);

    /// Entries for the menu of the window. @param HaStampa it has a printed sheet of its own
    [[nodiscard]] QList<VoceMenu> Voci(bool HaStampa = false);
    /// Enables what has a result to work on; call it when one comes or goes.
    void Aggiorna();
    /// Puts the calculation on view at the head of the list; nothing while there is none, nor for the one
    /// that was put there last, unless it has been made again: what the user has taken out does not come back
    /// by itself. A list that cannot be written is told once and hinders nothing.
    void Ricorda(bool Rifatto = false);
    /// The same behind the events at hand, so that no key waits for the disk.
    void RicordaDopo();
    /// Puts the boxes of a calculation back and computes.
    void Riprendi(const CalcoloRicordato& Calcolo);

    void mnuScheda_Click();
    void mnuCopiaTabella_Click();
    void mnuUltimi_Click();

private:
    [[nodiscard]] QMap<QString, QString> Scritti() const;

    QDialog* Modulo;
    ParteDelCalcolo Parte;
    QMap<QString, QString> Ricordati;  ///< the boxes of the calculation remembered last
};
