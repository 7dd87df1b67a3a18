// The folder chooser of the settings and of the finder.
#pragma once

#include "platform/system/cartelle.h"

#include <QDialog>

#include <memory>

class QListWidgetItem;

namespace Ui {
class frmSfoglia;
}

class frmSfoglia : public QDialog
{
    Q_OBJECT

public:
    explicit frmSfoglia(QWidget* Chiamante = nullptr);
    ~frmSfoglia() override;

    /// Asks for a folder, holding its caller back meanwhile.
    /// @param Inizio where it begins; where that is not there, the nearest folder above it
    /// @return the folder with the separator at its end, empty when cancelled
    [[nodiscard]] QString Scegli(const QString& Titolo, const QString& Inizio);

    void drvDir_Change(int Indice);
    /// Goes into the folder of a row.
    void dirDir_DblClick(const QListWidgetItem* Riga);
    void cmdSeleziona_Click();

protected:
    bool eventFilter(QObject* Oggetto, QEvent* Evento) override;

private:
    /// Lists a folder. One that cannot be read is reported, and the one before stays.
    /// @return true when it is listed
    bool VaiA(const QString& Cartella);
    /// The same to the folder that was written, looked for in the one on view where it has no root.
    bool VaiAllaScritta();
    void ElencaVolumi();
    void SeguiVolume();
    void Elenca(const QStringList& Dentro);
    void txtCartella_Invio();

    QString Presente;  ///< the folder that is listed
    QList<Volume> Volumi;
    std::unique_ptr<Ui::frmSfoglia> ui;
};
