// The page of honoraria: their catalogue, the lines taken from it, and the panel that graduates their
// amounts.
#pragma once

#include "feenote/parcella.h"

#include <QWidget>

#include <memory>
#include <utility>

enum class CasellaNota;
class ComandiRighe;
class CorniceNota;
class PannelloModOno;
struct RigheInComune;
struct Somme;

namespace Ui {
class SchedaOnorari;
}

class SchedaOnorari : public QWidget
{
    Q_OBJECT

public:
    /// @param Dati the note shown, @param Condivise what the lists of lines share: both live as long as the
    /// page
    SchedaOnorari(Parcella& Dati, RigheInComune& Condivise, CorniceNota& Finestra, QWidget* Padre);
    ~SchedaOnorari() override;

    /// The page comes into view: the catalogue of the present parameters, the lines recalculated if they are
    /// older, and the standard items of an authority that has them. A failure is reported.
    void Entra();
    /// Writes the controls from the record; call it with the window's guard.
    void Mostra();
    /// A control of this page; null for one of another.
    [[nodiscard]] QWidget* Casella(CasellaNota Quale) const;
    /// The footer.
    void MostraTotali(const Somme& Sommate);
    /// Another note has come into the record: the grids forget the former one's lines and catalogue.
    void NuovaNota();
    /// The lines are those of another step: none of them is selected, none is being varied.
    void RigheRimesse();

    /// Opens the information sheet of a row of the catalogue; nothing for any other number.
    void ShowNota(int Riga);
    /// Opens the modification panel on the current line, or closes it.
    void AbilitaModOno(bool Si);

private:
    void CollegaCatalogo();
    void CollegaRighe();
    void CollegaBarra();
    void CollegaPannello();
    void StringiImporti(bool Si);
    [[nodiscard]] std::optional<int> RigaCorrente() const;  ///< of the lines
    [[nodiscard]] QString PaginaNota(int Riga) const;       ///< sheet of a catalogue row; empty: no such row
    void SeguiNota(int Riga);  ///< puts it in the place of the sheet on view, if any
    void tdbListaOno_DblClick(int Riga);
    void tdbOnor_CellaScritta(int Riga, int Colonna);
    void cmdModOno_Click();
    void cmdAnnModOno_Click();

    Parcella& Nota;
    RigheInComune& Comune;
    CorniceNota& Cornice;
    std::unique_ptr<Ui::SchedaOnorari> ui;
    ComandiRighe* Comandi = nullptr;
    QString LarghezzeIntere;  ///< of the lines, while the panel stands beside them
    PannelloModOno* Pannello = nullptr;
    std::pair<QString, int> CatalogoCercato;  ///< category and authority of the catalogue last searched in
};
