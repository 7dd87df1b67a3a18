// The fiscal code of a person, with the municipality completed while it is typed.
#pragma once

#include "calculators/modComuni.h"

#include <QDialog>

#include <memory>
#include <optional>

class QCompleter;
class QStringListModel;

namespace Ui {
class frmCodFis;
}

class frmCodFis : public QDialog
{
    Q_OBJECT

public:
    frmCodFis();
    ~frmCodFis() override;

    void Mostra();

    void cmdElabora_Click();
    /// The municipality after a key that changed its text.
    void txtComune_Change(const QString& Testo);

protected:
    void changeEvent(QEvent* Evento) override;

private:
    void Collegamenti();
    void Load();
    void CreaElenco();
    void ProponiComuni(const QString& Testo);
    void txtComune_Scelto(const QString& Nome);
    void txtComune_Invio();
    void MostraComune();
    void Colora();

    std::unique_ptr<Ui::frmCodFis> ui;
    std::optional<ArchivioComuni> Comuni;  ///< open as long as the form; none when it could not be opened
    CampoComune Campo;                     ///< what the municipality field knows and shows
    QCompleter* Elenco = nullptr;          ///< the list beside the field
    QStringListModel* NomiElenco = nullptr;
    bool DataSbagliata = false;
};
