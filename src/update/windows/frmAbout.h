// The about box: title and version, folders in use, age of the data, licences.
#pragma once

#include "update/modInformazioni.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmAbout;
}

/// There is one; what it says is read anew whenever it comes up.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    frmAbout();
    ~frmAbout() override;

    /// Shows the window in front.
    void Mostra();

    /// Puts all that is on view on the clipboard, as plain text.
    void cmdCopia_Click();

private:
    void Load();

    QList<GruppoInformazioni> Gruppi;
    std::unique_ptr<Ui::frmAbout> ui;
};
