// The panel that graduates honoraria between minimum and maximum.
#pragma once

#include "feenote/modGraduazione.h"
#include "feenote/parcella.h"

#include <QFrame>

#include <memory>

namespace Ui {
class PannelloModOno;
}

/// pctInsModOno, beside the lines. It shows and writes the lines alone; which of them is current, and what
/// follows a confirmation, is the page's. Esc within the panel gives up, Enter confirms, or gives up on
/// "Annulla".
class PannelloModOno : public QFrame
{
    Q_OBJECT

public:
    /// @param Dati the note whose lines are shown, which lives as long as the panel
    PannelloModOno(Parcella& Dati, QWidget* Padre);
    ~PannelloModOno() override;

    [[nodiscard]] bool Aperto() const { return Stato.Aperto; }
    /// True while a confirmation is for all lines.
    [[nodiscard]] bool Tutti() const { return Stato.Tutti; }

    /// Opens on the current line; some lines open nothing, see ApriModOno.
    void Apri(std::optional<int> Corrente);
    void Chiudi();
    /// Another line is current.
    void SeguiRiga(std::optional<int> Corrente);
    /// A cell of a line was written.
    void Ricarica();
    /// Lines came, went or moved.
    void Rinfresca(std::optional<int> Corrente);
    /// Writes the amounts and closes. @return false, after telling the user, when there is no amount
    [[nodiscard]] bool Conferma();
    /// Writes the controls from what the panel holds.
    void Mostra();

Q_SIGNALS:
    void Mostrato(bool Aperto);  ///< the controls were written
    void ConfermaChiesta();
    void Rinunciato();

protected:
    void resizeEvent(QResizeEvent* Evento) override;

private:
    void CreaFasce();
    void MostraFasce();
    void MostraAvviso();
    [[nodiscard]] int LarghezzaChiesta() const;
    void CollegaTasti();
    void optModAll_Click(bool Tutti);
    void tdbFasceOno_Click();
    void sldGraduaOno_Action(int Azione);
    void sldGraduaOno_Change(int Posizione);

    const Parcella& Nota;
    TabellaRighe& Righe;
    Graduazione Stato;
    std::unique_ptr<Ui::PannelloModOno> ui;
};
