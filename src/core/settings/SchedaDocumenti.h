// The settings' page of the documents: the office's logo with the first page beside it, the mail.
#pragma once

#include "core/settings/valorischeda.h"

#include <QByteArray>
#include <QWidget>

#include <memory>

class AnteprimaPagina;
class QCheckBox;

namespace Ui {
class SchedaDocumenti;
}

class SchedaDocumenti : public QWidget
{
    Q_OBJECT

public:
    explicit SchedaDocumenti(QWidget* Padre);
    ~SchedaDocumenti() override;

    /// Fills the page from the settings store.
    void Carica();
    /// Stores the copy of a logo that was chosen here. @throws Errore 75, 61 as the disk refuses
    void ConservaLogo();
    /// What is to be stored; the logo's copy was stored before.
    [[nodiscard]] ValoriScheda Valori() const;
    /// Another logo, or none, was chosen here; none may also be chosen where the stored one is out of reach.
    [[nodiscard]] bool LogoCambiato() const
    {
        return Png != PngLetto || (Png.isEmpty() && !Impronta.isEmpty() && !Difetto);
    }

private:
    void cmdLogo_Click();
    void cmdTogliLogo_Click();
    void cmdTestiIniziali_Click();
    void MostraLogo();
    void MostraFoglio();
    [[nodiscard]] QString Documenti() const;

    std::unique_ptr<Ui::SchedaDocumenti> ui;
    AnteprimaPagina* Foglio = nullptr;
    QList<QCheckBox*> chkLogoDoc;  ///< by print type, then the sheets
    QString Impronta;              ///< of the stored copy; empty: none
    QByteArray Png;                ///< what is shown: the copy, or what was chosen here
    QByteArray PngLetto;           ///< what the settings hold
    QString Detto;                 ///< what is said of the logo
    bool Difetto = false;
};
