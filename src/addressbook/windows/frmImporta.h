// Bringing an office's old archives in: a whole archive, names of other programs, old notes.
#pragma once

#include "addressbook/exchange/annullo.h"
#include "addressbook/exchange/colonneimporta.h"
#include "addressbook/exchange/importa.h"
#include "addressbook/exchange/sorgente.h"
#include "platform/base/tabellarighe.h"

#include <QDialog>

#include <functional>
#include <memory>

class QLineEdit;

namespace Ui {
class frmImporta;
}

/// There is one; it holds the other windows back while it is on view. Nothing is written before its last
/// step, and stopping leaves everything as it was.
class frmImporta : public QDialog
{
    Q_OBJECT

public:
    /// Element of optModo.
    enum Modo { ArchivioIntero = 0, Nominativi = 1, Parcelle = 2 };
    /// Pages, in the order of the steps.
    enum Pagina { PagScelta, PagColonne, PagDoppioni, PagResoconto };

    frmImporta();
    ~frmImporta() override;

    /// Shows the first step for a table of an archive, empty the session's.
    /// @param File what to import, if it is known already
    void Mostra(const QString& DiArchivio = {}, const QString& Tabella = {}, Modo Che = Nominativi,
                const QString& File = {});

    void cmdAvanti_Click();
    void cmdIndietro_Click();
    /// @param Quale 0 the file or folder to import, 1 the folder of the copies
    void cmdSfoglia_Click(int Quale);
    void cmdAnnullaImporta_Click();
    void cmdSalvaResoconto_Click();

public Q_SLOTS:
    void reject() override;

protected:
    void showEvent(QShowEvent* Evento) override;

private:
    class Lavoro;

    // ---- frmImporta.cpp: controls, the first step, a whole archive, old notes, the report
    void CollegaControlli();
    void MostraModo();
    void MostraUltima();
    void DaSpazio();
    void VaiA(Pagina Nuova);
    void Abilita();
    [[nodiscard]] Modo Scelto() const;
    [[nodiscard]] QString Tabella() const;
    [[nodiscard]] QString File() const;
    [[nodiscard]] QString Archivio() const;
    /// Runs a step. What is wrong with a file is told as a warning, any other failure as an error.
    bool Tenta(const std::function<void()>& Azione);
    void AlLavoroPer(const std::function<void()>& Azione);
    [[nodiscard]] bool Manca(QLineEdit* Campo, const QString& Frase);
    [[nodiscard]] bool Avanza(qint64 Fatte, qint64 Tutte);
    void PrendiIntero();
    void CopiaParcelle();
    void MostraResoconto(const QString& Esito, const QString& Testo, bool Annullabile);

    // ---- frmImporta_Nominativi.cpp: names of a file into the archive
    void CollegaNominativi();
    void PreparaColonne();
    void RileggiCon(const std::function<void(OpzioniSorgente&)>& Cambia);
    void ApriSorgente();
    void MostraLettura();
    void Rileggi(OpzioniSorgente Nuove);
    void MostraAnteprima();
    void MostraColonne();
    void MostraMeta();
    void cmbMeta_Click(int Voce);
    void ContaUsate();
    bool Prova();
    void Importa();

    QString InArchivio;  ///< empty: the session's
    std::unique_ptr<SorgenteNominativi> Sorgente;
    OpzioniSorgente Opzioni;
    TabellaEstranea Letta;
    QList<Campo> Campi;           ///< of the table that takes the names
    QStringList Chiavi;           ///< where each column goes
    QList<SceltaColonna> Scelte;  ///< those that were set by hand
    std::unique_ptr<ImportaNominativi> Opera;
    TabellaRighe RigheColonne;
    TabellaRighe RigheAnteprima;
    QString Resoconto;
    bool AlLavoro = false;
    std::unique_ptr<Ui::frmImporta> ui;
};
