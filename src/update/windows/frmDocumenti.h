// The documents that the program works with: a list to read from.
#pragma once

#include "platform/base/tabellarighe.h"
#include "update/modDocumenti.h"

#include <QDialog>

#include <memory>

class QKeyEvent;
class QLabel;

namespace Ui {
class frmDocumenti;
}

/// There is one; the folder is read anew whenever it comes up.
class frmDocumenti : public QDialog
{
    Q_OBJECT

public:
    frmDocumenti();
    ~frmDocumenti() override;

    /// Shows the window in front.
    void Mostra();

    void tdbDocum_DblClick(int Riga);
    void txtCerca_Change();

protected:
    void hideEvent(QHideEvent* Evento) override;
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    void CostruisciGriglia();
    void CollegaControlli();
    void Load();
    void Elenca();
    [[nodiscard]] bool TastoTesto(const QKeyEvent& Evento);

    QList<VoceDocumento> Tutti;
    QList<VoceDocumento> Mostrati;
    TabellaRighe Righe;  ///< what the grid shows of them
    QLabel* panConto = nullptr;
    std::unique_ptr<Ui::frmDocumenti> ui;
};
