// The page of expenses: their catalogue, and the lines whose amounts the user types.
#pragma once

#include "feenote/parcella.h"

#include <QWidget>

#include <memory>

class ComandiRighe;
class CorniceNota;
struct RigheInComune;
struct Somme;

namespace Ui {
class SchedaSpese;
}

class SchedaSpese : public QWidget
{
    Q_OBJECT

public:
    /// @param Dati the note shown, @param Condivise what the lists of lines share: both live as long as the
    /// page
    SchedaSpese(Parcella& Dati, RigheInComune& Condivise, CorniceNota& Finestra, QWidget* Padre);
    ~SchedaSpese() override;

    /// The page comes into view: it shows its catalogue, and opens it where the honoraria have not.
    void Entra();
    /// Writes the controls from the record; call it with the window's guard.
    void Mostra();
    /// The footer.
    void MostraTotali(const Somme& Sommate);
    /// Another note has come into the record: the grids forget the former one's lines and catalogue.
    void NuovaNota();
    /// The lines are those of another step: none of them is selected, none is being varied.
    void RigheRimesse();

private:
    void CollegaCatalogo();
    void CollegaRighe();
    void tdbListaDir_DblClick(int Riga);
    void tdbDir_CellaScritta();

    Parcella& Nota;
    RigheInComune& Comune;
    CorniceNota& Cornice;
    std::unique_ptr<Ui::SchedaSpese> ui;
    ComandiRighe* Comandi = nullptr;
};
