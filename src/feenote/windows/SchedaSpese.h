// The page of expenses: their catalogue, and the lines whose amounts the user types.
#pragma once

#include "core/spesedilegge.h"
#include "feenote/parcella.h"

#include <QWidget>

#include <memory>

enum class CasellaNota;
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
    /// A control of this page; null for one of another.
    [[nodiscard]] QWidget* Casella(CasellaNota Quale) const;
    /// The footer.
    void MostraTotali(const Somme& Sommate);
    /// Writes exempt expenses of another window where new lines go; call it with no cell open. One step.
    void Porta(const QList<SpesaDiLegge>& Nuove);
    /// Another note has come into the record: the grids forget the former one's lines and catalogue.
    void NuovaNota();
    /// The lines are those of another step: none of them is selected, none is being varied.
    void RigheRimesse();

    /// A line is taken in hand: one that waits for its amount is offered it again.
    void RigaInMano();

private:
    void CollegaCatalogo();
    void CollegaRighe();
    void tdbListaDir_DblClick(int Riga);
    void tdbDir_CellaScritta();
    void ApriIlCatalogo();

    // ---- SchedaSpese_Offerta.cpp: the amount in force of a line just inserted
    void CollegaOfferta();
    void OffriImporto(int Riga);
    void MostraOfferta(int Riga, const ImportoDiLegge& Importo);
    /// The amount in force on the day of a line, which is today until it has one.
    [[nodiscard]] std::optional<ImportoDiLegge> ImportoPer(int Riga) const;
    void SeguiRiga();  ///< an offer whose line is no longer the one in hand goes
    void AccettaOfferta();
    [[nodiscard]] std::optional<int> RigaInOfferta() const;

    /// The line that an amount is offered for, by its key.
    struct ImportoInOfferta
    {
        quint64 Chiave = 0;
        ImportoDiLegge Importo;
    };

    Parcella& Nota;
    RigheInComune& Comune;
    CorniceNota& Cornice;
    std::unique_ptr<Ui::SchedaSpese> ui;
    ComandiRighe* Comandi = nullptr;
    std::optional<ImportoInOfferta> Offerto;
};
