// One icon of the user's: title, target, picture.
#pragma once

#include "platform/base/tabellarighe.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmIcons;
}

class frmIcons : public QDialog
{
    Q_OBJECT

public:
    /// Kinds of a target, in the order of cmbTipoIco.
    enum Tipo { Programma, Collegamento };

    /// @param Icone table that the save changes
    /// @param Riga row to edit; -1 makes a new one
    frmIcons(TabellaRighe& Icone, int Riga, QWidget* Padre);
    ~frmIcons() override;

    /// Fills the boxes from the row; those of a new icon are empty, with a picture chosen.
    void LoadIconData();
    /// Row that was edited or made.
    [[nodiscard]] int Riga() const { return RigaIcona; }

    void cmdSelProg_Click();
    void cmdSalvaIco_Click();

private:
    bool Verifica();
    bool Rifiuta(const QString& Messaggio, QWidget* Campo);
    void MostraFigura();
    [[nodiscard]] QString Figura() const;

    std::unique_ptr<Ui::frmIcons> ui;
    TabellaRighe& Tabella;
    int RigaIcona;
    QString FiguraLetta;  ///< as the row names it, also when its file is gone
};
