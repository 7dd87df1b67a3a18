// The form of updates: what is in use, what is new, the way from the one to the other.
#pragma once

#include "update/modAggiorna.h"

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

    /// Shows the window in front. With the word "run" its check begins by itself.
    void Mostra(const QString& Parola = {});
    /// The same, and waits until it is closed.
    void MostraModale(const QString& Parola);

    void cmdVerifica_Click();
    void cmdFile_Click();
    void cmdUpgrade_Click();
    void cmdPreview_Click();

protected:
    void showEvent(QShowEvent* Evento) override;

private:
    class Lavoro;

    void Collegamenti();
    void Load();
    void MostraPresente();
    void Avvia(const QString& Parola);
    void Verifica(const Provenienza& Da);
    void MostraNovita();
    void Aggiungi(const QString& Riga);
    [[nodiscard]] bool Avanza(qint64 Ricevuti, qint64 Totale);
    [[nodiscard]] bool AggiornaTassi();
    void AggiornaProgramma();
    void AvviaInstallatore(const QString& File);

    std::unique_ptr<Ui::frmUpgrade> ui;
    Annuncio Trovato;
    bool ProgrammaNuovo = false;
    bool TassiNuovi = false;
    bool AlLavoro = false;
};
