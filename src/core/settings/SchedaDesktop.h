// The settings' page of the desktop: looks, and the user's icons.
#pragma once

#include "core/modAspetto.h"
#include "core/modIcone.h"
#include "core/settings/valorischeda.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace Ui {
class SchedaDesktop;
}

class SchedaDesktop : public QWidget
{
    Q_OBJECT

public:
    explicit SchedaDesktop(QWidget* Padre);
    ~SchedaDesktop() override;

    /// Fills the page from the settings store and the file of icons.
    void Carica();
    /// The looks to be stored. The picture is the stored one until another is chosen, also one that is not in
    /// its folder.
    [[nodiscard]] ValoriScheda Valori() const;
    /// Writes the icons, changed here or not, and puts them into IconeUtente. Those that were not changed
    /// here leave a file alone that holds others by now.
    /// @return false when no file could be written
    [[nodiscard]] bool SalvaIcone();
    /// The icons differ from those in the file.
    [[nodiscard]] bool IconeCambiate() const { return Icone != IconeLette; }

    /// Fills cmbSfondi from the folder of backgrounds.
    void LoadImg();
    /// Fills cmbTemplates from templates.ini.
    void LoadTemplates();

    /// The row of this page that is an icon of the desktop, by its row there; nothing for one that was
    /// changed or taken away here.
    [[nodiscard]] std::optional<int> RigaDi(int SullaScrivania) const;
    /// Lets the user edit an icon, or make one with a row of -1. A row that is gone does nothing.
    void ModificaIcona(int Riga);
    /// Asks, and takes an icon away. A row that is gone does nothing.
    void EliminaIcona(int Riga);
    /// Moves the current icon by one place.
    void SpostaIcona(int Passo);
    /// Moves icons, which keep their order; the first of them takes the place `Meta`, counted without them;
    /// one past the others is the end.
    void SpostaIcone(const QList<int>& Quali, int Meta);

private:
    void cmbTemplates_Click(int Voce);
    void cmbSfondi_Click(int Voce);
    void cmdColor_Click(int Quale);
    void MostraAspetto();
    void MostraColore(int Quale);
    void MostraModello();
    void AbilitaPulsanti();
    [[nodiscard]] bool InVigore(const ModelloAspetto& Modello) const;

    std::unique_ptr<Ui::SchedaDesktop> ui;
    QStringList Sfondi;
    QList<ModelloAspetto> Modelli;
    std::array<int, ColoriDesktop> Colori{};
    QString Immagine;  ///< as it is stored
    TabellaRighe Icone{ColonneIcona};
    TabellaRighe IconeLette{ColonneIcona};
};
