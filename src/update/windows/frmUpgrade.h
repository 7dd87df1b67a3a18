// The form of updates: what is in use, what is new, the way from the one to the other.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmUpgrade;
}

class frmUpgrade : public QDialog
{
    Q_OBJECT

public:
    frmUpgrade();
    ~frmUpgrade() override;

    /// Shows the window in front.
    void Mostra();

    void cmdPreview_Click();

private:
    void Load();

    std::unique_ptr<Ui::frmUpgrade> ui;
};
