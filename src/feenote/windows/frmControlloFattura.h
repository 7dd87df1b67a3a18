// What the checks say of the file of an electronic invoice.
#pragma once

#include "feenote/einvoice/controlli.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmControlloFattura;
}

class frmControlloFattura : public QDialog
{
    Q_OBJECT

public:
    /// @param File its name, without folders
    frmControlloFattura(const QString& File, const QList<EsitoControllo>& Esiti, QWidget* Padre);
    ~frmControlloFattura() override;

private:
    std::unique_ptr<Ui::frmControlloFattura> ui;
};

/// "accepted, with 2 warnings" in one Italian sentence.
[[nodiscard]] QString FraseEsiti(const QString& File, const QList<EsitoControllo>& Esiti);
